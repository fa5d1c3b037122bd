// A session of the whole console, shell and menus, in the test's own process.
#pragma once

#include "host/call/Scenario.h"

#include <string>

struct Session {
    std::string record;                                ///< what was read, printed and called, errors included
    std::string problems;                              ///< empty if everything was released, and nothing sent too late
    std::array<unsigned, host::kOperationCount> calls; ///< of each operation
};

/// Types the words into the shell, on a simulator with that scenario, and then ends the input.
Session PlaySession(host::Scenario scenario, const std::string& words);
