// The TV service inside this process: the same code as `tvserviced`, on one end of a socket pair.
#pragma once

#include "host/messaging/DebugPrintService.h"

#include <thread>

namespace host
{

class EmbeddedService
{
public:
    EmbeddedService() = default;
    /// Every client bus must be closed by then.
    ~EmbeddedService();
    EmbeddedService(const EmbeddedService&) = delete;
    EmbeddedService& operator=(const EmbeddedService&) = delete;

    /// Serves on a thread of its own and returns the client's bus; an earlier one must be closed. Throws
    /// std::system_error.
    Bus Connect();

private:
    void Join();

    DebugPrintService m_service; // used by one service thread after the other
    std::thread m_thread;
};

} // namespace host
