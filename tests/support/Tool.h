// Runs the tool's executable.
#pragma once

#include "support/Process.h"

#include <string>
#include <vector>

/// The result of a run.
struct Outcome {
    int status; ///< exit status, or minus the signal that ended it
    std::string err;
    std::string trace;
};

/// A running tool.
class Tool : public Process
{
public:
    /// The scenario is the text of a file; empty for the built-in one.
    explicit Tool(const std::string& scenario = "", Environment environment = {},
                  const std::vector<std::string>& command = {TOOL_PATH});
    /// Ends the input, waits for the exit and returns the result.
    Outcome Finish();
};
