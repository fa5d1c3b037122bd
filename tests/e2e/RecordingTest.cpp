// Recorded sessions of every command, compared character by character.
#include "support/Recording.h"

namespace
{

using Recorded = testing::TestWithParam<std::string>;

TEST_P(Recorded, IsPlayedAgain)
{
    Recording recording = LoadRecording(GetParam());
    recording.record = PlayWithEcho(recording.input, recording.scenario) + "\n";
    EXPECT_TRUE(MatchesRecord(recording));
    EXPECT_TRUE(IsSame(Play(recording.input, recording.scenario) + "\n", WithoutEcho(recording.record)));
}

INSTANTIATE_TEST_SUITE_P(Sessions, Recorded, testing::ValuesIn(RecordingNames()),
                         [](const auto& recording) { return recording.param; });

} // namespace
