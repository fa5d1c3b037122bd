// The state that all components of the host platform share.
#pragma once

#include "host/call/Scenario.h"
#include "host/call/Trace.h"

#include <array>
#include <atomic>

namespace host
{

/// Made on first use and never destroyed: static objects use it before `main`, and signal threads may use it while the
/// process ends.
struct Host {
    Scenario scenario;
    Trace trace;
    std::array<std::atomic<unsigned>, kOperationCount> calls = {}; ///< of each operation, so far

    /// The host that is in use. The first call sets it up from the environment; a setting that cannot be used ends the
    /// process with status 2.
    static Host& Instance();

    /// Replaces the host that is in use and returns the previous one, so that a test can run one scenario after the
    /// other. No platform call may be running. The caller keeps both alive.
    static Host& Exchange(Host& host);
};

} // namespace host
