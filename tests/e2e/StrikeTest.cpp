// Ctrl-C, a dropped line and kill: the input ends, everything is left in order, and the process ends by the signal.
#include "support/Match.h"
#include "support/Tool.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <map>
#include <random>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace
{

/// The other end of a tool's input, held by somebody: it does not end when the test is through.
struct HeldInput {
    explicit HeldInput(const Tool& tool)
        : end(open(("/proc/" + std::to_string(tool.Pid()) + "/fd/0").c_str(), O_WRONLY | O_CLOEXEC))
    {
    }
    ~HeldInput() { close(end); }
    const int end;
};

// Every object that a factory made was released once. Signal subscribers are left out: the TV service keeps them.
testing::AssertionResult IsBalanced(const Outcome& outcome)
{
    const char* const call = R"(TVServiceAPI::(?:Create(?!SignalSubscriber)(\w+)\(.*\) = 0|Destroy\(I(\w+)\)))";
    std::map<std::string, int> alive;
    for (const auto& found : Matches(outcome.trace, call))
        found[1].empty() ? --alive[found[2]] : ++alive[found[1]];
    const bool balanced = std::all_of(alive.begin(), alive.end(), [](const auto& kind) { return kind.second == 0; });
    return balanced ? testing::AssertionSuccess() : testing::AssertionFailure() << outcome.trace;
}

constexpr int kStrikes[] = {SIGHUP, SIGINT, SIGTERM};
const std::string kStop = "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"Stop\", 2) = true";

TEST(Strike, EndsTheInputAtEveryKindOfPrompt)
{
    struct Case {
        const char* words;
        const char* prompt;
        std::string last; // call
    };
    const std::string unsubscribed = "TVServiceAPI::DestroySignalSubscriber()";
    const Case cases[] = {
        {"", "cmd> ", "(no call)"},
        {"5 ", "15.GetPIDSetStatus", "(no call)"},
        {"5 6 7 ", "HDMI6 \n***************\nInput ? >", "TVServiceAPI::Destroy(ISourceControl)"},
        {"5 6 7 1", "HDMI6 \n***************\nInput ? >", "TVServiceAPI::Destroy(ISourceControl)"}, // half a word
        {"5 1 0 ", "Analysis:2 > ", "(no call)"},
        {"6 ", "21. Set boot up", unsubscribed},
        {"6 17 1 ", "ret=1\n", unsubscribed},
        {"6 19 3 1 2 3 ", "SrcHeight = ", unsubscribed},
        {"1 ", "tvs> ", kStop},
    };
    for (const Case& c : cases) {
        for (const int strike : kStrikes) {
            Tool tool;
            tool.Type(c.words);
            tool.WaitFor(c.prompt);
            const HeldInput held(tool);
            kill(tool.Pid(), strike);
            tool.Type("99 "); // comes too late, or to nobody
            const Outcome outcome = tool.Finish();
            EXPECT_EQ(outcome.status, -strike) << c.words;
            EXPECT_THAT("(no call)\n" + outcome.trace, testing::EndsWith(c.last + "\n")) << c.words;
            EXPECT_TRUE(IsBalanced(outcome)) << c.words;
            EXPECT_EQ(outcome.trace.find("SetSource"), std::string::npos) << c.words;
            EXPECT_EQ(outcome.err, "") << c.words;
        }
    }
}

using StrikeAtAnyMoment = testing::TestWithParam<unsigned>;

INSTANTIATE_TEST_SUITE_P(Seeds, StrikeAtAnyMoment, testing::Values(1U, 2U, 3U, 4U));

TEST_P(StrikeAtAnyMoment, LeavesNothingBehind)
{
    std::mt19937 random(GetParam());
    for (int round = SettingOr("DEBUGUTIL_TEST_ROUNDS", 50); round > 0 && !HasFailure(); --round) {
        Tool tool;
        for (int i = 0; i < 40; ++i)
            tool.Type("6 17 1 4 2 5 99 19 3 1 1 1 1 1 1 1 1 1 1 1 1 10 99 1 0 1 99 99 5 6 0 13 7 0 99 1 3 99 ");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
        const int strike = kStrikes[random() % 3];
        kill(tool.Pid(), strike);
        const Outcome outcome = tool.Finish();
        EXPECT_TRUE(outcome.status == -strike) << outcome.status;
        EXPECT_TRUE(IsBalanced(outcome));
        EXPECT_LE(outcome.trace.rfind("CreateSignalSubscriber") + 1, outcome.trace.rfind("DestroySignalSubscriber") + 1)
            << outcome.trace;
        EXPECT_LE(outcome.trace.rfind("\"Start\"") + 1, outcome.trace.rfind("\"Stop\"") + 1) << outcome.trace;
    }
}

TEST(Strike, ASecondOneEndsACallThatHangs)
{
    Tool tool("[delay]\nISourceControl::SetSource=3600000\n");
    tool.Type("5 6 0 13 ");
    tool.WaitFor("SourceType = 13\n");
    const HeldInput held(tool);
    kill(tool.Pid(), SIGINT);
    kill(tool.Pid(), SIGTERM);
    const Outcome outcome = tool.Finish();
    EXPECT_TRUE(outcome.status == -SIGTERM || outcome.status == -SIGINT) << outcome.status;
    EXPECT_EQ(outcome.trace, "TVServiceAPI::CreateSourceControl(1, 0) = 0\n");
}

// The kernel may pick any thread of the process.
TEST(Strike, ReachesTheConsoleFromAnotherThread)
{
    Tool tool;
    tool.Type("1 ");
    tool.WaitFor("tvs> ");
    const HeldInput held(tool);
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // by now it reads
    const std::string tasks = "/proc/" + std::to_string(tool.Pid()) + "/task";
    for (const auto& entry : std::filesystem::directory_iterator(tasks)) {
        const int thread = std::stoi(entry.path().filename());
        if (thread != tool.Pid()) {
            EXPECT_EQ(syscall(SYS_tgkill, tool.Pid(), thread, SIGHUP), 0);
        }
    }
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, -SIGHUP);
    EXPECT_THAT(outcome.trace, testing::EndsWith(kStop + "\n"));
}

} // namespace
