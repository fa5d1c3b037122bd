// Scenario and trace: what scripts rely on.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gmock/gmock.h>

namespace
{

using testing::Contains;
using testing::EndsWith;
using testing::StartsWith;

TEST(Platform, RefusesAScenarioThatCannotBeUsed)
{
    struct Case {
        const char* text;
        const char* reason; // behind the path
    };
    const Case cases[] = {
        {"[tv]\nantenna_mode=one\n", ": [tv] antenna_mode: not a number of 32 bits\n"},
        {"[tv]\nantenna_mode=4294967296\n", ": [tv] antenna_mode: not a number of 32 bits\n"},
        {"[tv]\ncaption_exist=1\n", ": [tv] caption_exist: neither true nor false\n"},
        {"[tv]\ncolour=true\n", ": [tv] colour: unknown key\n"},
        {"[radio]\n", ": [radio]: unknown group\n"},
        {"[vconf]\nkey=1x\n", ": [vconf] key: not a number of 32 bits\n"},
        {"[latest]\nrf_cable=18446744073709551616\n", ": [latest] rf_cable: not a number of 64 bits\n"},
        {"[latest]\nrf_air=-1\n", ": [latest] rf_air: not a number of 64 bits\n"},
        {"[service 1]\nname=1\n", ": [service 1] name: unknown key\n"},
        {"[service 1]\n13=abc\n", ": [service 1] 13: not a number of 32 bits\n"},
        {"[service 1]\n13=9999999999\n", ": [service 1] 13: not a number of 32 bits\n"},
        {"[service 1]\ntitle=\xFF\n", ": [service 1] title: not a text in UTF-8, or a wrong escape\n"},
        {"[service 1]\ntitle=A\\qB\n", ": [service 1] title: not a text in UTF-8, or a wrong escape\n"},
        {"[service 1]\ntitle[de]=A\n", ": [service 1] title[de]: unknown key\n"},
        {"[service 1]\n01=1\n", ": [service 1] 01: unknown key\n"},
        {"[service 1]\n1=1\n 1 = 2\n", ": [service 1] 1: stands twice\n"},
        {"[service 1]\n[service 2]\n[service 1]\n", ": [service 1]: stands twice\n"},
        {"[result]\nISourceControl::Fly=1\n", ": [result] ISourceControl::Fly: unknown operation\n"},
        {"[result]\nISourceControl::SetSource=1 object\n",
         ": [result] ISourceControl::SetSource: only a factory makes an object\n"},
        {"[result]\nISourceControl::SetSource=\n", ": [result] ISourceControl::SetSource: not a number of 32 bits\n"},
        {"[throw]\nmain=x\n", ": [throw] main: unknown operation\n"},
        {"antenna_mode=1\n", ": Key file does not start with a group\n"},
    };
    for (const Case& c : cases) {
        const Outcome outcome = RunTool("99\n", c.text);
        EXPECT_EQ(outcome.status, 2) << c.text;
        EXPECT_EQ(outcome.out, "") << c.text;
        EXPECT_THAT(outcome.err, StartsWith("scenario /tmp/")) << c.text;
        EXPECT_THAT(outcome.err, EndsWith(std::string("/scenario") + c.reason)) << c.text;
    }
}

TEST(Platform, RefusesPathsThatCannotBeUsed)
{
    for (const auto& [name, path] : {std::pair("TVS_SCENARIO", "/nowhere/s"), std::pair("TVS_SCENARIO", "/tmp"),
                                     std::pair("TVS_TRACE", "/nowhere/t"), std::pair("TVS_TRACE", "/tmp"),
                                     std::pair("TVS_SCENARIO", "/dev/stdin")}) {
        const Outcome outcome = RunTool("99\n", "", {{name, path}});
        EXPECT_EQ(outcome.status, 2) << name << path;
        EXPECT_EQ(outcome.out, "") << name << path;
        EXPECT_NE(outcome.err.find(path), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
    }
}

TEST(Platform, PlaysWhatTheScenarioSays)
{
    const Outcome outcome =
        RunTool("5 15 99 99", "# a comment\n[tv]\npid_set_status=true\n[service a]\n12=18446744073709551615\n13=\n"
                              "[result]\nTVServiceAPI::CreateAVControl = -2\tobject \n[throw]\n");
    EXPECT_NE(outcome.out.find("*****GetPIDSetStatus[1]*****\n"), std::string::npos);
    EXPECT_EQ(outcome.err, "");
}

TEST(Platform, ResultsStandForTheWork)
{
    const Outcome outcome =
        RunTool("5 6 0 13 7 0 99 99", "[result]\nISourceControl::SetSource=-3\nISourceControl::GetSource=2\n");
    EXPECT_NE(outcome.out.find("*****Source[0]*****\n"), std::string::npos);
    EXPECT_THAT(outcome.trace, Contains("ISourceControl::SetSource(13, \"\") = -3"));
    EXPECT_THAT(outcome.trace, Contains("ISourceControl::GetSource() = 2"));
}

TEST(Platform, TracesToStandardError)
{
    const Outcome outcome = RunTool("5 15 99 99", "[throw]\nIPipelineUtility::GetPIDSetStatus=two\\nlines \"quoted\"\n",
                                    {{"TVS_TRACE", "-"}});
    EXPECT_EQ(outcome.err, "TVServiceAPI::CreatePipelineUtility(1, 0) = 0\n"
                           "IPipelineUtility::GetPIDSetStatus() ! two\\nlines \"quoted\"\n"
                           "TVServiceAPI::Destroy(IPipelineUtility)\n"
                           "TVS Debug: two lines \"quoted\"\n");
}

} // namespace
