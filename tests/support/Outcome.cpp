#include "support/Outcome.h"

#include <map>
#include <regex>

namespace
{

// A factory that throws makes nothing, and one whose result the scenario sets only with the word "object".
bool MakesObject(const std::string& factory, const std::string& call, const std::string& scenario)
{
    std::smatch set;
    if (std::regex_search(scenario, set, std::regex("(^|\n)[ \t]*" + factory + "[ \t]*=([^\n]*)")))
        return call.find(") ! ") == std::string::npos && set.str(2).find("object") != std::string::npos;
    return true;
}

} // namespace

std::string LastCall(const Outcome& outcome) { return outcome.trace.empty() ? "(no call)" : outcome.trace.back(); }

testing::AssertionResult IsBalanced(const Outcome& outcome)
{
    const std::regex made(R"((TVServiceAPI::Create(?!SignalSubscriber)(\w+))\(.*)");
    const std::regex released(R"(TVServiceAPI::Destroy\((\w+)\).*)");
    std::map<std::string, int> alive; // by interface
    std::string wrong;
    for (const std::string& call : outcome.trace) {
        std::smatch match;
        if (std::regex_match(call, match, made) && MakesObject(match[1], call, outcome.scenario))
            ++alive["I" + match.str(2)];
        else if (std::regex_match(call, match, released) && --alive[match[1]] < 0)
            wrong += match.str(1) + " was released without being there\n";
    }
    for (const auto& [interface, count] : alive)
        if (count > 0)
            wrong += interface + " was left, objects: " + std::to_string(count) + "\n";
    return wrong.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << wrong << Lines(outcome.trace);
}

std::string Lines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}
