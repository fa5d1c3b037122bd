#include "support/Tool.h"

#include <fstream>

Tool::Tool(const std::string& scenario, Environment environment)
{
    environment.try_emplace("TVS_TRACE", Path("trace"));
    environment.try_emplace("DEBUGMENU_SYSROOT", SYSROOT_PATH);
    if (!scenario.empty()) {
        std::ofstream(Path("scenario")) << scenario;
        environment["TVS_SCENARIO"] = Path("scenario");
    }
    Start({TOOL_PATH}, environment);
}

Outcome Tool::Finish()
{
    const int status = End();
    Outcome outcome{status, Text(), ReadFile(Path("err")), ReadFile(Path("scenario")), {}};
    std::ifstream trace(Path("trace"));
    for (std::string line; std::getline(trace, line);)
        outcome.trace.push_back(line);
    return outcome;
}

Outcome RunTool(const std::string& input, const std::string& scenario, const Environment& environment)
{
    Tool tool(scenario, environment);
    tool.Type(input);
    return tool.Finish();
}

std::string RunShell(const std::string& command)
{
    Process shell;
    shell.Start({"sh", "-c", command}, {{"TOOL", TOOL_PATH}});
    shell.End();
    return shell.Text();
}
