// A session of the whole console, shell and menus, in the test's own process.
#pragma once

#include "host/call/Scenario.h"

#include <string>

struct Session {
    std::string record;                                ///< what was typed, printed and called, errors included
    std::string wrong;                                 ///< empty if all was left in order
    std::array<unsigned, host::kOperationCount> calls; ///< of each operation
};

/// Types the words into the shell, which plays that scenario, and ends the input behind them.
Session PlaySession(host::Scenario scenario, const std::string& words);
