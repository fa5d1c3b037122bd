#include "support/Recording.h"

#include "support/Process.h"
#include "support/Screens.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

std::string PathOf(const Recording& recording) { return SESSION_PATH "/" + recording.name + ".session"; }

std::string FileText(const Recording& recording, const Outcome& outcome)
{
    return (recording.scenario.empty() ? "" : "--- scenario\n" + recording.scenario) + "--- input\n" + recording.input +
           "--- output\n" + FoldMenus(outcome.out) + "\n--- trace\n" + Lines(outcome.trace) + "--- errors\n" +
           outcome.err;
}

} // namespace

std::vector<std::string> RecordingNames()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SESSION_PATH))
        names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

Recording LoadRecording(const std::string& name)
{
    Recording recording{name, "", ""};
    std::istringstream text(ReadFile(PathOf(recording)));
    std::string* section = nullptr;
    for (std::string line; std::getline(text, line) && line != "--- output";) {
        if (line == "--- scenario")
            section = &recording.scenario;
        else if (line == "--- input")
            section = &recording.input;
        else if (section != nullptr)
            *section += line + "\n";
    }
    return recording;
}

testing::AssertionResult IsAsRecorded(const Recording& recording, const Outcome& outcome)
{
    Process diff;
    diff.Start({"diff", "--unified", "--label=recorded", "--label=seen", PathOf(recording), "-"});
    diff.Type(FileText(recording, outcome));
    return diff.End() == 0 ? testing::AssertionSuccess() : testing::AssertionFailure() << "\n" << diff.Text();
}

void Rewrite(const Recording& recording, const Outcome& outcome)
{
    std::ofstream(PathOf(recording)) << FileText(recording, outcome);
}
