// What the host platform is set up with.
#pragma once

#include "host/call/Scenario.h"
#include "host/call/Trace.h"

#include <array>
#include <atomic>

namespace host
{

/// Made on first use and never destroyed, because static objects and signal threads may use it before `main` and while
/// the process ends.
struct Host {
    Scenario scenario;
    Trace trace;
    std::array<std::atomic<unsigned>, kOperationCount> calls = {}; ///< of each operation so far

    /// Sets up from the environment on the first call; ends the process with status 2 if the settings cannot be used.
    static Host& Instance();

    /// Puts another host in place and returns the one before, so that a process can play one television after the
    /// other. No platform call may be running. Both belong to the caller.
    static Host& Exchange(Host& host);
};

} // namespace host
