// The state that the components of the host platform share.
#pragma once

#include "host/call/Scenario.h"
#include "host/call/Trace.h"

#include <array>
#include <atomic>

namespace host
{

/// Created on first use and never destroyed: static objects use it before `main`, and signal threads still use it while
/// the process exits.
struct Host {
    Scenario scenario;
    Trace trace;
    std::array<std::atomic<unsigned>, kOperationCount> calls = {}; ///< number of calls of each operation so far

    /// The current host. The first call creates it from the environment; an invalid setting ends the process with
    /// status 2.
    static Host& Instance();

    /// For tests: replaces the current host and returns the previous one. The caller keeps both alive. No platform call
    /// may be running.
    static Host& Exchange(Host& host);
};

} // namespace host
