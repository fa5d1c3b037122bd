// Remote calls to one object of the TV service, one after the other.
#pragma once

#include "host/messaging/Transport.h"

#include <memory>
#include <string>
#include <vector>

namespace host
{

/// Opens its bus at once. What fails is opened anew by the next call.
class Channel
{
public:
    Channel(std::string objectPath, const char* openStep, std::unique_ptr<Transport> transport);

    /// The values of the reply. Throws std::exception with the step that failed and the reason. The reply may take 10 s,
    /// and 1 s while the service has not answered the call before.
    std::vector<TCTreeNode> Call(const std::string& interfaceName, const std::string& method, short number,
                                 const std::vector<TCTreeNode>& request);

    /// Throws what Call throws for a reply that is malformed.
    [[noreturn]] static void FailMalformed();

private:
    BusMessage ReplyBy(Clock::time_point end, const std::string& interfaceName, const std::string& method, short number,
                       const std::vector<TCTreeNode>& request);
    void OpenBy(Clock::time_point end);
    bool IsOpenAt(Clock::time_point end);

    std::string m_objectPath;
    const char* m_openStep;
    std::unique_ptr<Transport> m_transport; // outlives the bus, whose end it waits for
    Bus m_bus;
    bool m_unresponsive = false; // it has let a call time out, and has answered none since
};

} // namespace host
