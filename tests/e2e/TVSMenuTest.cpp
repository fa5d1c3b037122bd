// The TVS debug menu where what a session says holds for more than that session.
#include "support/Recording.h"
#include "support/Tool.h"

#include <regex>

namespace
{

TEST(TVSMenu, TakesNoObjectForAFailure)
{
    const Recording failed = LoadRecording("tvs_factories_fail");
    const auto told = [&](const char* result) {
        return Tell(failed.input, std::regex_replace(failed.scenario, std::regex("-1"), result)) + "\n";
    };
    const std::regex refusal(" = -1\n");
    EXPECT_TRUE(IsSame(told("0"), std::regex_replace(failed.record, refusal, " = 0\n")));
    // An object that comes with the failure is released; a subscriber is not, it belongs to the TV service.
    const std::regex control(R"((TVServiceAPI::Create)(?!Signal)(\w+)(\(.*\)) = -1\n(.* fail))");
    const std::string released =
        std::regex_replace(failed.record, control, "$1$2$3 = 1\n$4TVServiceAPI::Destroy(I$2)\n");
    EXPECT_TRUE(IsSame(told("1 object"), std::regex_replace(released, refusal, " = 1\n")));
}

TEST(TVSMenu, TellsTheFirstOfTwoExceptionsInOneLine)
{
    const Outcome outcome =
        RunTool("5 15", "[throw]\nIPipelineUtility::GetPIDSetStatus=two\\nlines\nTVServiceAPI::Destroy=late\n");
    EXPECT_EQ(outcome.err, "TVS Debug: two lines\n");
    EXPECT_EQ(LastCall(outcome), "TVServiceAPI::Destroy(IPipelineUtility) ! late");
    EXPECT_EQ(outcome.status, 0);
}

} // namespace
