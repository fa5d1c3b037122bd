#include "support/Tool.h"

#include <fstream>

Tool::Tool(const std::string& scenario, Environment environment, const std::vector<std::string>& command)
{
    environment.try_emplace("TVS_TRACE", Path("trace"));
    environment.try_emplace("DEBUGMENU_SYSROOT", SYSROOT_PATH);
    if (!scenario.empty()) {
        std::ofstream(Path("scenario")) << scenario;
        environment["TVS_SCENARIO"] = Path("scenario");
    }
    Start(command, environment);
}

Outcome Tool::Finish()
{
    const int status = End();
    return {status, ReadFile(Path("err")), ReadFile(Path("trace"))};
}
