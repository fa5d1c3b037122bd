// The TPMS menu when the TV service fails, and when anything at all is typed.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gmock/gmock.h>
#include <random>

namespace
{

using testing::EndsWith;

struct Factory {
    const char* words; // from the main menu on, until the object is needed
    const char* name;
    const char* failure; // the end of what is printed before the main menu is back
};

constexpr Factory kFactories[] = {
    {"1 0", "CreateReferenceCount", "profile:1\nCreateReferenceCount failed\n"},
    {"2 0", "CreateAVControl", "profile:1\nCreateAVControl failed\n"},
    {"3", "CreateSourceControl", "cmd> CreateSourceControl failed\n"},
    {"4", "CreatePipelineUtility", "cmd> CreatePipelineUtility failed\n"},
    {"5", "CreateServiceNavigation", "cmd> CreateServiceNavigation failed\n"},
    {"6", "CreateServiceNavigation", "cmd> CreateServiceNavigation failed\n"},
    {"7 1 99", "CreateSourceControl", " select num> CreateSourceControl failed\n"},
    {"7 3 99", "CreateSourceControl", " select num> CreateSourceControl failed\n"},
    {"7 7 99", "CreateSourceControl", " select num> CreateSourceControl failed\n"},
    {"7 7 99", "CreateVideoControl", " select num> CreateVideoControl failed\n"},
    {"7 3 5 99", "CreateService", "major> CreateService failed\n"},
    {"7 3 5 99", "CreateServiceNavigation", "major> CreateServiceNavigation failed\n"},
    {"8", "CreateAVControl", "cmd> "},
    {"10", "CreateTunerControl", "cmd> CreateTunerControl failed\n"},
    {"11", "CreateServiceNavigation", "cmd> "},
    {"12", "CreatePipelineUtility", "cmd> CreatePipelineUtility failed\n"},
    {"13 1 5 99 1", "CreateServiceNavigation", "major> CreateServiceNavigation failed\n"},
    {"13 1 5 99 1", "CreateService", "major> CreateService failed\n"},
    {"14", "CreateVideoControl", "cmd> CreateVideoControl failed\n"},
    {"15", "CreateDataControl", "Check Caption exist\nCreateDataControl failed\n"},
    {"16 1 0 99", "CreateSourceControl", "HDMI1=13)> CreateSourceControl failed\n"},
    {"16 2 0 5 99", "CreateService", "(int)> CreateService failed\n for major=5\n"},
    {"17", "CreatePipelineUtility", "cmd> CreatePipelineUtility failed\n"},
    {"18", "CreateScanControl", "cmd> CreateScanControl failed\n"},
    {"18", "CreateServiceGuide", "cmd> CreateServiceGuide failed\n"},
    {"18", "CreateServiceNavigation", "cmd> CreateServiceNavigation failed\n"},
    {"19", "CreateZoomControl", "cmd> ZoomControl interface creation failed!\n"},
    {"20", "CreateServiceNavigation", "cmd> CreateServiceNavigation failed\n"},
    {"20", "CreateSourceControl", "cmd> CreateSourceControl failed\n"},
    {"21", "CreateServiceNavigation", "cmd> CreateServiceNavigation failed\n"},
    {"21 5", "CreateService", "major> CreateService failed\n"},
};

TEST(TPMSFaults, NameTheFactoryAndGoOn)
{
    for (const Factory& factory : kFactories) {
        for (const char* result : {"-1", "0", "-1 object"}) {
            SCOPED_TRACE(std::string(factory.words) + " " + factory.name + "=" + result);
            const std::string scenario = std::string("[vconf]\ndb/tv-viewer/window_id=1\n[result]\nTVServiceAPI::") +
                                         factory.name + "=" + result + "\n";
            const Outcome outcome = RunTool(std::string("6 ") + factory.words + " 99 99", scenario);
            EXPECT_EQ(outcome.status, 0);
            EXPECT_EQ(outcome.err, "");
            EXPECT_NE(outcome.out.find(factory.failure + std::string("====")), std::string::npos) << outcome.out;
            EXPECT_THAT(outcome.out, EndsWith(kTPMSMenu + kTopMenu + "executing: Exit\n"));
            EXPECT_TRUE(IsBalanced(outcome)); // an object that came with a failure too
        }
    }
}

const std::string kService = "[service a]\n1=2\n3=0\n12=4096\n13=5\n23=1\n25=0\n";

TEST(TPMSFaults, AnExceptionEndsTheMenuInOrder)
{
    for (const auto& [words, operation] :
         {std::pair("1 0 1", "IReferenceCount::GetReferenceCount"), std::pair("7 3 5", "ISourceControl::ClaimPipeline"),
          std::pair("7 3 5", "vconf_get_int"), std::pair("16 2 0 5", "IService::FindService"),
          std::pair("13 1 5", "IServiceNavigation::SetTvMode"),
          std::pair("17 7", "IPipelineUtility::CheckPendingState"), std::pair("18 1", "IServiceGuide::GetProgram"),
          std::pair("18 3", "IServiceNavigation::FindServices"), std::pair("18 3", "ISignalSubscriber::AddSignal"),
          std::pair("18 2", "TVServiceAPI::CreateServiceGuide"),
          std::pair("19 10", "IZoomControl::GetConnectedZoomWindows"),
          std::pair("20 1", "IServiceNavigation::SetService")}) {
        SCOPED_TRACE(operation);
        const Outcome outcome =
            RunTool(std::string("6 ") + words + " 2\n", kService + "[throw]\n" + operation + "=simulated fault\n");
        EXPECT_EQ(outcome.err, "TVS HT Debug: simulated fault\n");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(IsBalanced(outcome));
        EXPECT_EQ(LastCall(outcome), "TVServiceAPI::DestroySignalSubscriber()");
        // The console goes on in the top-level menu.
        EXPECT_THAT(outcome.out, EndsWith(kTopMenu + "executing: TV Player\nCommand not implemented\n" + kTopMenu));
    }
}

TEST(TPMSFaults, WorksWithoutASubscription)
{
    for (const char* result : {"-1", "0", "-1 object"}) {
        const Outcome outcome = RunTool("6 18 3 4 6 7 99 99 99",
                                        std::string("[result]\nTVServiceAPI::CreateSignalSubscriber=") + result + "\n");
        EXPECT_EQ(Lines(outcome.trace).find("Signal("), std::string::npos) << result;
        EXPECT_NE(outcome.out.find("\tcalled StopBarkerChannelScan, ret: 1\n"), std::string::npos) << result;
    }
    const Outcome thrown = RunTool(
        "6 2", "[throw]\nTVServiceAPI::CreateSignalSubscriber=none\nTVServiceAPI::DestroySignalSubscriber=late\n");
    EXPECT_EQ(thrown.err, "TVS HT Debug: none\n");
    const Outcome late = RunTool("6 99 99", "[throw]\nTVServiceAPI::DestroySignalSubscriber=late\n");
    EXPECT_EQ(late.err, "TVS HT Debug: late\n");
    EXPECT_EQ(late.status, 0);
}

class RandomSessions : public testing::TestWithParam<unsigned>
{
};

TEST_P(RandomSessions, EndCleanly)
{
    const auto meaningful = Words("99 0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 101 65535");
    const auto others = Words("x -1 -5 1x +2 0x10 2147483648 - \xC3\xBC 99999999999999999999 " + std::string(3, '\0'));
    for (unsigned seed = GetParam(); seed < GetParam() + 250 && !HasFailure(); ++seed) {
        std::mt19937 random(seed);
        std::string input = random() % 8 == 0 ? "5" : "6";
        for (auto count = random() % 60; count > 0; --count) {
            const auto& words = random() % 6 == 0 ? others : meaningful;
            (input += random() % 3 == 0 ? "\n" : " ") += words[random() % words.size()];
        }
        const Outcome outcome = RunTool(input);
        EXPECT_EQ(outcome.status, 0) << seed << ": " << input << "\n" << outcome.err;
        EXPECT_TRUE(IsBalanced(outcome)) << seed << ": " << input;
    }
}

INSTANTIATE_TEST_SUITE_P(TPMS, RandomSessions, testing::Values(0U, 250U, 500U, 750U));

} // namespace
