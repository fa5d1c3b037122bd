// The menus by recorded sessions: every command to the letter.
#include "support/Recording.h"

namespace
{

using Recorded = testing::TestWithParam<std::string>;

TEST_P(Recorded, IsPlayedToTheLetter)
{
    Recording recording = LoadRecording(GetParam());
    recording.record = Tell(recording.input, recording.scenario) + "\n";
    EXPECT_TRUE(IsAsRecorded(recording));
    EXPECT_TRUE(IsSame(Play(recording.input, recording.scenario) + "\n", WithoutWords(recording.record)));
}

INSTANTIATE_TEST_SUITE_P(Sessions, Recorded, testing::ValuesIn(RecordingNames()),
                         [](const auto& recording) { return recording.param; });

} // namespace
