#include "support/Recording.h"

#include "support/Match.h"
#include "support/Screens.h"
#include "support/Tool.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

const std::string kMenus = SESSION_PATH "/menus.session";

std::string PathOf(const Recording& recording) { return SESSION_PATH "/" + recording.name + ".session"; }

std::string FileText(const Recording& recording)
{
    return (recording.scenario.empty() ? "" : "--- scenario\n" + recording.scenario) + "--- input\n" + recording.input +
           "--- record\n" + recording.record;
}

std::string Run(const char* tool, const std::string& input, const std::string& scenario)
{
    Tool process(scenario, {{"TVS_TRACE", "-"}}, {"sh", "-c", std::string("exec ") + tool + " 2>&1"});
    process.Type(input);
    const int status = process.End();
    return FoldMenus(process.Text() + (status == 0 ? "" : "exit status " + std::to_string(status) + "\n"));
}

} // namespace

std::vector<std::string> RecordingNames()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SESSION_PATH))
        if (entry.path() != kMenus)
            names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

Recording LoadRecording(const std::string& name)
{
    Recording recording{name, "", "", ""};
    std::istringstream text(ReadFile(PathOf(recording)));
    std::string* section = nullptr;
    for (std::string line; std::getline(text, line);) {
        if (line == "--- scenario")
            section = &recording.scenario;
        else if (line == "--- input")
            section = &recording.input;
        else if (line == "--- record")
            section = &recording.record;
        else if (section != nullptr)
            *section += line + "\n";
    }
    return recording;
}

std::string Tell(const std::string& input, const std::string& scenario)
{
    return Run(TELLING_TOOL_PATH, input, scenario);
}

std::string Play(const std::string& input, const std::string& scenario) { return Run(TOOL_PATH, input, scenario); }

std::string WithoutWords(const std::string& told) { return Replaced(told, "(‹.*›|«.*»)\n"); }

testing::AssertionResult IsSame(const std::string& seen, const std::string& expected)
{
    if (seen == expected)
        return testing::AssertionSuccess();
    Process diff;
    std::ofstream(diff.Path("expected")) << expected;
    diff.Start({"diff", "--unified", "--label=expected", "--label=seen", diff.Path("expected"), "-"});
    diff.Type(seen);
    diff.End();
    return testing::AssertionFailure() << "\n" << diff.Text();
}

testing::AssertionResult IsAsRecorded(const std::string& path, const std::string& seen)
{
    if (SettingOr("DEBUGUTIL_RECORD", 0) != 0)
        std::ofstream(path) << seen;
    return IsSame(seen, ReadFile(path));
}

testing::AssertionResult IsAsRecorded(const Recording& recording)
{
    return IsAsRecorded(PathOf(recording), FileText(recording));
}
