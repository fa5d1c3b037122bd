// The TVS debug menu: text and platform calls of every command, its failures, and the end of input.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gmock/gmock.h>

namespace
{

using testing::EndsWith;

const std::string kStars = "**********************\n";

std::string SetSubId(int subId) { return kStars + "*****Set SubID[" + std::to_string(subId) + "]*****\n"; }

struct Command {
    const char* name;
    const char* words;  // the number of the command, then its answers
    std::string before; // printed up to where the object is made
    std::string after;
    const char* factory;   // "" if it makes no object
    const char* arguments; // of the factory
    const char* interfaceName;
    const char* operation; // the one call on the object
    const char* call;      // its arguments and outcome
};

std::vector<Command> Commands()
{
    const std::string handle = "Input ScreenId. Main:0, Zanti:1 > Input Profile. Main:0, PIP:1 , Analysis:2 > ";
    const std::string size = "X: > Y: > W: > H: > ";
    const std::string typed = "User Input SourceType = ";
    return {
        {"Size Control", "1 1 1 10 20 300 400", handle + "User Input : screenId:1 profile:101\n" + size, "",
         "CreateVideoControl", "101, 1", "IVideoControl", "SetVideoSize", "(10, 20, 400, 300) = 1"},
        {"Size Control saturates", "1 2147483648 2 -1 x 99999999999 -99999999999",
         handle + "User Input : screenId:65535 profile:401\n" + size, "", "CreateVideoControl", "401, 65535",
         "IVideoControl", "SetVideoSize", "(-1, 0, -2147483648, 2147483647) = 1"},
        {"Size Control cuts", "1 70000 101 1 2 3 4", handle + "User Input : screenId:4464 profile:1\n" + size, "",
         "CreateVideoControl", "1, 4464", "IVideoControl", "SetVideoSize", "(1, 2, 4, 3) = 1"},
        {"Set Source", "6 1 4", kSubIdPrompt, SetSubId(1) + kStars + kSourceGuide + typed + "4\n",
         "CreateSourceControl", "1, 1", "ISourceControl", "SetSource", "(4, \"\") = 1"},
        {"Get Source", "7 2", kSubIdPrompt, SetSubId(2) + "*****Source[0]*****\n" + kStars, "CreateSourceControl",
         "1, 2", "ISourceControl", "GetSource", "() = 1 0"},
        {"Clean view on", "8 5", "*****Analog clean view on off?\nInput (0:off, 1:on) ? >", "", "CreateAVControl",
         "1, 0", "IAVControl", "SetAnalogCleanView", "(true) = 1"},
        {"Clean view off", "8 on", "*****Analog clean view on off?\nInput (0:off, 1:on) ? >", "", "CreateAVControl",
         "1, 0", "IAVControl", "SetAnalogCleanView", "(false) = 1"},
        {"Start monitoring", "12 13", kSourceGuide + typed + "13\n", "", "CreateSourceControl", "701, 0",
         "ISourceControl", "StartSourceMonitoring", "(13) = 1"},
        {"Stop monitoring", "13 -7x", kSourceGuide + typed + "-7\n", "", "CreateSourceControl", "701, 0",
         "ISourceControl", "StopSourceMonitoring", "(-7) = 1"},
        {"Sound on video call", "14 2", "Input ? >User Input OnOff = 2\n", "", "CreateSourceControl", "1, 0",
         "ISourceControl", "SetSoundOnVideoCall", "(true) = 1"},
        {"PID set status", "15", "", kStars + "*****GetPIDSetStatus[0]*****\n" + kStars, "CreatePipelineUtility",
         "1, 0", "IPipelineUtility", "GetPIDSetStatus", "() = 1 false"},
    };
}

std::string Created(const Command& c, const char* outcome)
{
    return std::string("TVServiceAPI::") + c.factory + "(" + c.arguments + ")" + outcome;
}

std::string Released(const Command& c) { return std::string("TVServiceAPI::Destroy(") + c.interfaceName + ")"; }

std::string Operation(const Command& c) { return std::string(c.interfaceName) + "::" + c.operation; }

Outcome RunInTVSMenu(const std::string& words, const std::string& scenario = "")
{
    return RunTool("5\n" + words + "\n99\n", scenario);
}

TEST(TVSMenu, DoesWhatEachCommandSays)
{
    for (const Command& c : Commands()) {
        const Outcome outcome = RunInTVSMenu(c.words);
        EXPECT_EQ(outcome.out, InTVSMenu(c.before + c.after)) << c.name;
        EXPECT_EQ(Lines(outcome.trace), Lines({Created(c, " = 0"), Operation(c) + c.call, Released(c)})) << c.name;
        EXPECT_EQ(outcome.status, 0) << c.name;
    }
}

TEST(TVSMenu, NamesTheFactoryThatFails)
{
    for (Command c : Commands()) {
        if (c.name == std::string("Set Source"))
            c.words = "6 1"; // its other question comes after the object
        for (const auto& [result, object] :
             {std::pair("-1", false), std::pair("0", false), std::pair("3 object", true)}) {
            const std::string factory = std::string("TVServiceAPI::") + c.factory;
            const Outcome outcome = RunInTVSMenu(c.words, "[result]\n" + factory + "=" + result + "\n");
            EXPECT_EQ(outcome.out, InTVSMenu(c.before + "[DebugUtil] " + factory + " fail")) << c.name << result;
            std::vector<std::string> calls = {Created(c, object ? " = 3" : result[0] == '0' ? " = 0" : " = -1")};
            if (object)
                calls.push_back(Released(c));
            EXPECT_EQ(Lines(outcome.trace), Lines(calls)) << c.name << result;
        }
    }
}

TEST(TVSMenu, ReleasesTheObjectWhenTheServiceThrows)
{
    for (const Command& c : Commands()) {
        const Outcome outcome =
            RunTool("5\n" + std::string(c.words) + "\n", "[throw]\n" + Operation(c) + "=simulated fault\n");
        EXPECT_EQ(outcome.err, "TVS Debug: simulated fault\n") << c.name;
        EXPECT_THAT(outcome.out, EndsWith(kTopMenu)) << c.name;
        ASSERT_EQ(outcome.trace.size(), 3U) << c.name;
        EXPECT_THAT(outcome.trace[1], EndsWith(" ! simulated fault")) << c.name;
        EXPECT_EQ(outcome.trace[2], Released(c)) << c.name;
        EXPECT_EQ(outcome.status, 0) << c.name;
    }
}

TEST(TVSMenu, SurvivesAReleaseThatThrows)
{
    const std::string late = "[throw]\nTVServiceAPI::Destroy=late\n";
    const Outcome outcome = RunTool("5\n15\n", late);
    EXPECT_EQ(outcome.err, "TVS Debug: late\n");
    EXPECT_TRUE(IsBalanced(outcome));
    EXPECT_THAT(outcome.out, EndsWith(kStars + "*****GetPIDSetStatus[0]*****\n" + kStars + kTopMenu));
    // Of two exceptions the first tells the story.
    EXPECT_EQ(RunTool("5\n15\n", late + "IPipelineUtility::GetPIDSetStatus=first\n").err, "TVS Debug: first\n");
}

// The input ends at every prompt: nothing is sent on an answer that nobody typed.
TEST(TVSMenu, AbandonsACommandAtTheEndOfInput)
{
    for (const Command& c : Commands()) {
        std::string words = c.words;
        for (std::size_t end = words.rfind(' '); end != std::string::npos; end = words.rfind(' ')) {
            words.resize(end);
            const Outcome outcome = RunTool("5\n" + words);
            EXPECT_EQ(outcome.status, 0) << words;
            EXPECT_TRUE(IsBalanced(outcome)) << words;
            for (const std::string& call : outcome.trace)
                EXPECT_THAT(call, testing::StartsWith("TVServiceAPI::")) << words;
            EXPECT_THAT(outcome.out, EndsWith(kTVSMenu + kTopMenu)) << words;
        }
    }
}

TEST(TVSMenu, AnswersOtherWords)
{
    const std::string unknown = "Command not recognized\n";
    for (const char* word : {"0", "9", "10", "11", "16", "98", "100", "-1", "4294967295"})
        EXPECT_EQ(RunInTVSMenu(word).out, InTVSMenu(unknown)) << word;
    EXPECT_EQ(RunInTVSMenu("2 3").out,
              InTVSMenu("[DebugUtil] Not implemented yet!\n" + kTVSMenu + "[DebugUtil] Not implemented yet!\n"));
    EXPECT_EQ(RunInTVSMenu("x 1x").out, InTVSMenu(kTVSMenu));
}

TEST(TVSMenu, RemembersTheSourceOfAPipeline)
{
    const Outcome outcome = RunInTVSMenu("6 1 13 7 1 7 0");
    EXPECT_NE(outcome.out.find("*****Set SubID[1]*****\n*****Source[13]*****\n"), std::string::npos);
    EXPECT_NE(outcome.out.find("*****Set SubID[0]*****\n*****Source[0]*****\n"), std::string::npos);
    EXPECT_THAT(outcome.trace, testing::Contains("ISourceControl::GetSource() = 1 13"));
}

TEST(TVSMenu, MonitorsSignals)
{
    const std::string create = "TVServiceAPI::CreateSignalSubscriber() = 0\n";
    std::string add, remove;
    for (const char* signal : {"59", "60", "61", "62", "63", "66"}) {
        add += std::string("ISignalSubscriber::AddSignal(") + signal + ", 0, 1, 0, 0) = 1\n";
        remove += std::string("ISignalSubscriber::RemoveSignal(") + signal + ", 1, 0, 0) = 1\n";
    }
    // The lines come from another thread, anywhere between the texts of the menu, but they come.
    const Outcome outcome = RunInTVSMenu("4 4 6 0 0 5 6 0 0");
    for (const char* line : {"[DebugUtil] SignalReceivedCallback - signal:SIGNAL_TUNE_START\n",
                             "[DebugUtil] SignalReceivedCallback - signal:SIGNAL_TUNE_SUCCESS\n"}) {
        const std::size_t first = outcome.out.find(line);
        EXPECT_NE(first, std::string::npos) << line;
        EXPECT_EQ(outcome.out.find(line, first + 1), std::string::npos) << line;
    }
    const std::string setSource =
        "TVServiceAPI::CreateSourceControl(1, 0) = 0\nISourceControl::SetSource(0, \"\") = 1\n"
        "TVServiceAPI::Destroy(ISourceControl)\n";
    EXPECT_EQ(Lines(outcome.trace), create + add + create + add + setSource + create + remove + setSource);
}

TEST(TVSMenu, ReportsASubscriberThatFails)
{
    const std::string failure = "[DebugUtil] TVServiceAPI::CreateSignalSubscriber fail";
    for (const char* result : {"-1", "0", "-1 object"}) {
        const std::string scenario = std::string("[result]\nTVServiceAPI::CreateSignalSubscriber=") + result + "\n";
        const Outcome subscribe = RunInTVSMenu("4", scenario);
        EXPECT_EQ(subscribe.out, InTVSMenu("")) << result;
        EXPECT_EQ(subscribe.trace.size(), 1U) << result;
        const Outcome unsubscribe = RunInTVSMenu("5", scenario);
        EXPECT_EQ(unsubscribe.out, InTVSMenu(failure)) << result;
        EXPECT_EQ(unsubscribe.trace.size(), 1U) << result;
    }
}

} // namespace
