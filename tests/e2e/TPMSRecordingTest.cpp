// The TPMS menu by recorded sessions: every command, and the end of input behind every word of them.
#include "support/Recording.h"
#include "support/Screens.h"
#include "support/Tool.h"

#include <cstdlib>
#include <gmock/gmock.h>

namespace
{

class Recorded : public testing::TestWithParam<std::string>
{
};

// What was asked of the TV service's objects, without the withdrawals with which command 17 ends.
std::vector<std::string> Operations(const std::vector<std::string>& trace)
{
    std::vector<std::string> operations;
    for (const std::string& call : trace)
        if (call.rfind("TVServiceAPI::", 0) != 0)
            operations.push_back(call);
    const auto ends = [](const std::string& call) {
        return call.rfind("IPipelineUtility::UnregisterFromStateChange(0, \"org.", 0) == 0 ||
               call.rfind("IPipelineUtility::CheckPendingState(0)", 0) == 0;
    };
    while (!operations.empty() && ends(operations.back()))
        operations.pop_back();
    return operations;
}

TEST_P(Recorded, IsPlayedToTheLetter)
{
    const Recording recording = LoadRecording(GetParam());
    const Outcome outcome = RunTool(recording.input, recording.scenario);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(IsBalanced(outcome));
    if (std::getenv("DEBUGUTIL_RECORD") == nullptr)
        EXPECT_TRUE(IsAsRecorded(recording, outcome));
    else if (!HasFailure())
        Rewrite(recording, outcome);
}

TEST_P(Recorded, MayEndBehindEveryWord)
{
    const Recording recording = LoadRecording(GetParam());
    const std::vector<std::string> whole = Operations(RunTool(recording.input, recording.scenario).trace);
    const std::vector<std::string> words = Words(recording.input);
    ASSERT_FALSE(words.empty());
    std::string typed = words[0];
    for (std::size_t count = 1; count < words.size() && !HasFailure(); typed += " " + words[count++]) {
        const Outcome outcome = RunTool(typed, recording.scenario);
        EXPECT_EQ(outcome.status, 0) << typed;
        EXPECT_TRUE(IsBalanced(outcome)) << typed;
        // Nothing that the words did not ask for.
        const std::vector<std::string> operations = Operations(outcome.trace);
        ASSERT_LE(operations.size(), whole.size()) << typed;
        EXPECT_TRUE(std::equal(operations.begin(), operations.end(), whole.begin())) << typed << "\n"
                                                                                     << Lines(operations);
        // Every menu was left in its turn.
        EXPECT_EQ(LastCall(outcome), "TVServiceAPI::DestroySignalSubscriber()") << typed;
        if (count > 1 && words[count - 1] != "99") {
            EXPECT_THAT(outcome.out, testing::EndsWith(kTPMSMenu + kTopMenu)) << typed;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(TPMS, Recorded, testing::ValuesIn(RecordingNames()),
                         [](const auto& recording) { return recording.param; });

} // namespace
