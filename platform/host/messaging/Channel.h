// Remote calls to one object of the TV service.
#pragma once

#include "host/messaging/Transport.h"

#include <memory>
#include <string>
#include <vector>

namespace host
{

/// The constructor opens the bus. After a failure the next call opens it again. Used by one thread at a time.
class Channel
{
public:
    Channel(std::string objectPath, const char* openStep, std::unique_ptr<Transport> transport);

    /// Returns the values of the reply. Throws std::exception with the failed step and the reason. The timeout is 10 s;
    /// after a call that timed out it is 1 s until the service replies again.
    std::vector<TCTreeNode> Call(const std::string& interfaceName, const std::string& method, short number,
                                 const std::vector<TCTreeNode>& request);

    /// Throws the exception that Call throws for a malformed reply.
    [[noreturn]] static void FailMalformed();

private:
    BusMessage m_ReplyBy(Clock::time_point end, const std::string& interfaceName, const std::string& method,
                         short number, const std::vector<TCTreeNode>& request);
    void m_OpenBy(Clock::time_point end);
    bool m_IsOpenAt(Clock::time_point end);

    std::string m_objectPath;
    const char* m_openStep;
    std::unique_ptr<Transport> m_transport; // destroyed after m_bus: it joins the service thread
    Bus m_bus;
    bool m_unresponsive = false; // a call timed out, and the service has not replied since
};

} // namespace host
