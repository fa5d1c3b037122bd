// The menus by recorded sessions: every command to the letter, the end of the input behind every word, and an exception
// in every operation. What follows an end or an exception is known: what is held is released, menus end in their turn.
#include "support/Recording.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>

namespace
{

const std::string kEnd = "‹end of input›\n";
const std::string kTop = "<top>\ncmd> ";
const std::string kFault = " ! simulated fault";

// A call in a record; a menu that names one has a blank behind it.
const std::regex
    kCall(R"(((?:I[A-Z]|TVServiceAPI|TCMarsh)\w*::\w+|vconf_get_int|TCApiPrintMessage)(\(.*\))( = .*)?\n)");

// Where a session stands at some moment of its record.
struct Moment {
    std::vector<std::string> held;          // interfaces of the control objects, in the order in which they were made
    bool subscribed = false;                // the TPMS menu is open
    std::map<std::string, bool> registered; // applications that take part in a change of service; true: yet to report
    std::string menu;                       // the last one shown
    std::string option;                     // of the top-level menu, as exceptions name it
};

Moment MomentOf(const std::string& told)
{
    static const std::regex event("executing: (.*)\n|"
                                  "<(\\w+)>\n|"
                                  "TVServiceAPI::Create(\\w+)\\(.*\\) = 0\n|TVServiceAPI::Destroy\\((\\w+)\\)|"
                                  "IPipelineUtility::(\\w+)\\(0, \"([^\"]*)\".*\\) = 1\n|DestroySignalSubscriber");
    Moment now;
    for (std::sregex_iterator found(told.begin(), told.end(), event), end; found != end; ++found) {
        const std::smatch& match = *found;
        if (match[1].matched)
            now.option = match[1];
        else if (match[2].matched)
            now.menu = match[2];
        else if (match[3] == "SignalSubscriber")
            now.subscribed = now.option == "TVS HT Debug";
        else if (match[3].matched)
            now.held.push_back("I" + match.str(3));
        else if (match[4].matched)
            now.held.erase(std::remove(now.held.begin(), now.held.end(), match[4]), now.held.end());
        else if (match[5] == "UnregisterFromStateChange")
            now.registered.erase(match[6]);
        else if (match[5].matched)
            now.registered[match[6]] = match[5] == "RegisterForStateChange";
        else
            now.subscribed = false;
    }
    // The test of invalid services releases its two objects as it made them, all others the last one first.
    if (now.held != std::vector<std::string>{"IServiceNavigation", "ISourceControl"})
        std::reverse(now.held.begin(), now.held.end());
    return now;
}

std::string Releases(const Moment& now, const std::string& outcome = "")
{
    std::string text;
    for (const std::string& interface : now.held)
        text += "TVServiceAPI::Destroy(" + interface + ")" + outcome + "\n";
    return text;
}

// Command 17 withdraws its applications when it is left while one has yet to report.
std::string Withdrawals(const Moment& now)
{
    if (now.menu != "mechanism")
        return "";
    const bool pending =
        std::any_of(now.registered.begin(), now.registered.end(), [](const auto& entry) { return entry.second; });
    std::string text = std::string("IPipelineUtility::CheckPendingState(0) = 1 ") + (pending ? "true\n" : "false\n");
    for (const std::string application : {"org.ostrel.sigtunepreptest1", "org.ostrel.sigtunepreptest2"})
        if (pending)
            text += "IPipelineUtility::UnregisterFromStateChange(0, \"" + application +
                    "\") = " + std::to_string(now.registered.count(application)) + "\n";
    return text;
}

// What follows the end of the input at that moment.
std::string LeftInOrder(const std::string& told)
{
    const Moment now = MomentOf(told);
    const bool atPrompt = told.size() >= 5 && told.compare(told.size() - 5, 5, "cmd> ") == 0;
    if (now.menu == "top" && atPrompt)
        return "";
    if (now.option == "TVS")
        return "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"Stop\", 2) = true\n";
    const std::string main = now.option == "TVS Debug" ? "tvs" : "tpms";
    return Withdrawals(now) + Releases(now) + (now.menu == main && atPrompt ? "" : "<" + main + ">\ncmd> ") +
           (now.subscribed ? "TVServiceAPI::DestroySignalSubscriber()\n" : "") + kTop;
}

// The words that were read until then.
std::string WordsIn(const std::string& told)
{
    static const std::regex word("‹(.*)›\n");
    std::string words;
    for (std::sregex_iterator found(told.begin(), told.end(), word), end; found != end; ++found)
        words += found->str(1) + " ";
    return words;
}

class Recorded : public testing::TestWithParam<std::string>
{
};

TEST_P(Recorded, IsPlayedToTheLetter)
{
    Recording recording = LoadRecording(GetParam());
    recording.record = Tell(recording.input, recording.scenario) + "\n";
    if (std::getenv("DEBUGUTIL_RECORD") != nullptr)
        Rewrite(recording);
    EXPECT_TRUE(IsAsRecorded(recording));
    EXPECT_TRUE(IsSame(Play(recording.input, recording.scenario) + "\n", WithoutWords(recording.record)));
    EXPECT_EQ(Releases(MomentOf(recording.record)), "");
}

TEST_P(Recorded, EndsInOrderBehindEveryWord)
{
    const Recording recording = LoadRecording(GetParam());
    const std::string& whole = recording.record;
    std::size_t read = whole.find("‹");
    while ((read = whole.find("‹", read + 1)) != std::string::npos && !HasFailure()) {
        const std::string told = whole.substr(0, read);
        EXPECT_TRUE(IsSame(Tell(WordsIn(told), recording.scenario), told + kEnd + LeftInOrder(told)));
    }
}

TEST_P(Recorded, EndsInOrderOnEveryException)
{
    const Recording recording = LoadRecording(GetParam());
    const std::string& whole = recording.record;
    std::set<std::string> operations;
    for (std::sregex_iterator found(whole.begin(), whole.end(), kCall), end; found != end && !HasFailure(); ++found) {
        const std::string operation = found->str(1);
        if (recording.scenario.empty() || !operations.insert(operation).second)
            continue;
        std::string told = whole.substr(0, static_cast<std::size_t>(found->position()));
        Moment now = MomentOf(told);
        std::string later;
        if (operation == "TVServiceAPI::Destroy") {
            later = kFault; // every release fails then; the first exception tells the story
            now.held.erase(now.held.begin());
        } else if (operation == "TVServiceAPI::DestroySignalSubscriber") {
            now.subscribed = false;
        } else if (operation == "TCApiPrintMessage") {
            told.erase(told.rfind('\n', told.size() - 2) + 1); // the message itself, on standard error
        }
        std::string scenario = recording.scenario;
        const std::size_t group = scenario.find("[throw]\n");
        scenario.insert(group == std::string::npos ? scenario.size() : group + 8,
                        (group == std::string::npos ? "[throw]\n" : "") + operation + "=simulated fault\n");
        EXPECT_TRUE(IsSame(Tell(WordsIn(told), scenario),
                           told + operation + found->str(2) + kFault + "\n" + Releases(now, later) +
                               (now.subscribed ? "TVServiceAPI::DestroySignalSubscriber()\n" : "") + now.option +
                               ": simulated fault\n" + kTop + kEnd));
    }
}

INSTANTIATE_TEST_SUITE_P(Sessions, Recorded, testing::ValuesIn(RecordingNames()),
                         [](const auto& recording) { return recording.param; });

} // namespace
