// Plays the recorded sessions of every command and compares each byte of their output.
#include "support/Recording.h"

namespace
{

using Recorded = testing::TestWithParam<std::string>;

TEST_P(Recorded, PlaysAsRecorded)
{
    Recording recording = LoadRecording(GetParam());
    recording.record = PlayWithEcho(recording.input, recording.scenario) + "\n";
    EXPECT_TRUE(MatchesRecord(recording));
    EXPECT_TRUE(IsSame(Play(recording.input, recording.scenario) + "\n", WithoutEcho(recording.record)));
}

INSTANTIATE_TEST_SUITE_P(Sessions, Recorded, testing::ValuesIn(RecordingNames()),
                         [](const auto& recording) { return recording.param; });

} // namespace
