// The real executable.
#pragma once

#include "support/Outcome.h"
#include "support/Process.h"

#include <string>
#include <vector>

/// A running tool.
class Tool : public Process
{
public:
    /// The scenario is the text of a file; empty for the built-in one.
    explicit Tool(const std::string& scenario = "", Environment environment = {},
                  const std::vector<std::string>& command = {TOOL_PATH});
    /// Ends the input, waits for the exit and collects all.
    Outcome Finish();
};

/// Types all of the input and ends it.
Outcome RunTool(const std::string& input, const std::string& scenario = "", const Environment& environment = {});
