// A session of the whole console, shell and menus, in the test's own process.
#pragma once

#include "host/call/Scenario.h"

#include <string>

struct Session {
    std::string record;   ///< what was read, printed and called, including errors
    std::string problems; ///< objects not released and calls after the end of the input; empty if there are none
    std::array<unsigned, host::kOperationCount> calls; ///< the number of calls of each operation
};

/// Runs the shell on a simulator with that scenario, types the words and ends the input.
Session PlaySession(host::Scenario scenario, const std::string& words);
