// SIGINT, SIGHUP and SIGTERM end the input: every object is released, and the process ends by the signal.
#include "support/Match.h"
#include "support/Tool.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <random>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace
{

// The tool's input. While a test has it open for writing, only a signal can end it.
std::string InputOf(const Tool& tool) { return "/proc/" + std::to_string(tool.Pid()) + "/fd/0"; }

// Whether every object that a factory created was released once. The TV service keeps signal subscribers; they are
// destroyed by their callback and not counted here.
testing::AssertionResult ReleasesEveryObject(const Outcome& outcome)
{
    const char* const call = R"(TVServiceAPI::(?:Create(?!SignalSubscriber)(\w+)\(.*\) = 0|Destroy\(I(\w+)\)))";
    std::map<std::string, int> alive;
    for (const auto& found : Matches(outcome.trace, call))
        found[1].empty() ? --alive[found[2]] : ++alive[found[1]];
    const bool balanced = std::all_of(alive.begin(), alive.end(), [](const auto& kind) { return kind.second == 0; });
    return balanced ? testing::AssertionSuccess() : testing::AssertionFailure() << outcome.trace;
}

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGTERM};
const std::string kStop = "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"Stop\", 2) = true";

TEST(TerminationSignals, EndTheInputAtEveryKindOfPrompt)
{
    struct Case {
        const char* words;
        const char* prompt;
        std::string lastCall;
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
        for (const int signal : kSignals) {
            Tool tool;
            tool.Type(c.words);
            tool.WaitFor(c.prompt);
            const std::ofstream held(InputOf(tool));
            kill(tool.Pid(), signal);
            tool.Type("99 "); // must be ignored: the input has ended
            const Outcome outcome = tool.Finish();
            EXPECT_EQ(outcome.status, -signal) << c.words;
            EXPECT_THAT("(no call)\n" + outcome.trace, testing::EndsWith(c.lastCall + "\n")) << c.words;
            EXPECT_TRUE(ReleasesEveryObject(outcome)) << c.words;
            EXPECT_EQ(outcome.trace.find("SetSource"), std::string::npos) << c.words;
            EXPECT_EQ(outcome.err, "") << c.words;
        }
    }
}

using TerminationAtAnyMoment = testing::TestWithParam<unsigned>;

INSTANTIATE_TEST_SUITE_P(Seeds, TerminationAtAnyMoment, testing::Values(1U, 2U, 3U, 4U));

TEST_P(TerminationAtAnyMoment, ReleasesEverything)
{
    std::mt19937 random(GetParam());
    for (int round = SettingOr("DEBUGUTIL_TEST_ROUNDS", 50); round > 0 && !HasFailure(); --round) {
        Tool tool;
        for (int i = 0; i < 40; ++i)
            tool.Type("6 17 1 4 2 5 99 19 3 1 1 1 1 1 1 1 1 1 1 1 1 10 99 1 0 1 99 99 5 6 0 13 7 0 99 1 3 99 ");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
        const int signal = kSignals[random() % 3];
        kill(tool.Pid(), signal);
        const Outcome outcome = tool.Finish();
        EXPECT_TRUE(outcome.status == -signal) << outcome.status;
        EXPECT_TRUE(ReleasesEveryObject(outcome));
        EXPECT_LE(outcome.trace.rfind("CreateSignalSubscriber") + 1, outcome.trace.rfind("DestroySignalSubscriber") + 1)
            << outcome.trace;
        EXPECT_LE(outcome.trace.rfind("\"Start\"") + 1, outcome.trace.rfind("\"Stop\"") + 1) << outcome.trace;
    }
}

// A closing terminal sends two signals at once, and so does a service manager that stops a session.
TEST(TerminationSignals, EndTheToolOnceWhenTwoArriveTogether)
{
    for (const char* scenario : {"", "[delay]\nTVServiceAPI::Destroy=50\n"}) {
        for (const bool stopped : {false, true}) {
            for (const auto& [first, second] :
                 {std::pair(SIGHUP, SIGTERM), {SIGTERM, SIGHUP}, {SIGHUP, SIGHUP}, {SIGINT, SIGTERM}}) {
                Tool tool(scenario);
                tool.Type("5 6 7 ");
                tool.WaitFor("HDMI6 \n***************\nInput ? >");
                const std::ofstream held(InputOf(tool));
                if (stopped)
                    kill(tool.Pid(), SIGSTOP);
                kill(tool.Pid(), first);
                kill(tool.Pid(), second);
                kill(tool.Pid(), SIGCONT);
                tool.Type("99 "); // comes after the end of the input, as below
                const Outcome outcome = tool.Finish();
                EXPECT_TRUE(outcome.status == -first || outcome.status == -second) << outcome.status;
                EXPECT_TRUE(ReleasesEveryObject(outcome));
            }
        }
    }
}

TEST(TerminationSignals, EndACallThatHangsWhenASecondOneArrives)
{
    Tool tool("[delay]\nISourceControl::SetSource=3600000\n");
    tool.Type("5 6 0 13 ");
    tool.WaitFor("SourceType = 13\n");
    const std::ofstream held(InputOf(tool));
    kill(tool.Pid(), SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(1000));
    EXPECT_TRUE(std::filesystem::exists(InputOf(tool))); // empty, not closed
    kill(tool.Pid(), SIGTERM);
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, -SIGTERM);
    EXPECT_EQ(outcome.trace, "TVServiceAPI::CreateSourceControl(1, 0) = 0\n");
}

TEST(TerminationSignals, EndTheInputHoweverTheToolWasStarted)
{
    std::vector<std::vector<std::string>> commands = {{"env", "--block-signal=HUP,INT,TERM", TOOL_PATH}};
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // their runtimes need descriptors of their own
    commands.push_back(                                             // no descriptor is left for an empty input
        {"bash", "-c", "exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n 4; exec " TOOL_PATH});
#endif
    for (const auto& command : commands) {
        Tool tool("", {}, command);
        tool.Type("5 6 7 ");
        tool.WaitFor("HDMI6 \n***************\nInput ? >");
        const std::ofstream held(InputOf(tool));
        kill(tool.Pid(), SIGTERM);
        tool.Type("99 ");
        const Outcome outcome = tool.Finish();
        EXPECT_EQ(outcome.status, -SIGTERM) << command[0];
        EXPECT_THAT(outcome.trace, testing::EndsWith("TVServiceAPI::Destroy(ISourceControl)\n")) << command[0];
    }
}

TEST(TerminationSignals, EndTheInputAfterAPlugInThatBlocksThem)
{
    Tool tool("", {{"DEBUGMENU_SYSROOT", PLUG_IN_SYSROOT}});
    tool.Type("6 1 2 ");
    tool.WaitFor("Command not implemented");
    tool.WaitFor("cmd> ");
    const std::ofstream held(InputOf(tool));
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // until it reads
    kill(tool.Pid(), SIGTERM);
#ifdef __SANITIZE_THREAD__ // it holds the signal back until the read ends
    tool.Type("99 ");
#endif
    EXPECT_EQ(tool.Finish().status, -SIGTERM);
}

// The output pipe is full, so the tool blocks in a write while many words are still unread.
TEST(TerminationSignals, LoseNoTextAndReadNoFurtherWord)
{
    Tool tool;
    std::string words;
    for (int i = 0; i < 2000; ++i)
        words += "x ";
    tool.Type(words);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    kill(tool.Pid(), SIGTERM);
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // the signal arrives before the output is read
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(tool.Text(), testing::EndsWith("99 Exit\n====================================\ncmd> "));
    EXPECT_LT(tool.Text().size(), 200'000U); // a pipe holds less; the output of all words is twice as long
}

// The kernel may deliver a signal to any thread of the process.
TEST(TerminationSignals, ReachTheConsoleFromAnotherThread)
{
    Tool tool;
    tool.Type("1 ");
    tool.WaitFor("tvs> ");
    const std::ofstream held(InputOf(tool));
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // the tool is reading by now
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
