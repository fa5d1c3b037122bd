// Runs the TV service inside this process: the same code as in `tvserviced`, on one end of a socket pair.
#pragma once

#include "host/messaging/DebugPrintService.h"

#include <thread>

namespace host
{

class EmbeddedService
{
public:
    EmbeddedService() = default;
    /// The client's bus must be closed before.
    ~EmbeddedService();
    EmbeddedService(const EmbeddedService&) = delete;
    EmbeddedService& operator=(const EmbeddedService&) = delete;

    /// Starts a service thread and returns the client's bus; an earlier one must be closed. Throws std::system_error.
    Bus Connect();

private:
    void m_Join();

    DebugPrintService m_service; // outlives m_thread, the only thread that uses it
    std::thread m_thread;
};

} // namespace host
