#include "support/Outcome.h"

#include "support/Match.h"

#include <algorithm>
#include <map>

testing::AssertionResult IsBalanced(const Outcome& outcome)
{
    const char* const call = R"(TVServiceAPI::(?:Create(?!SignalSubscriber)(\w+)\(.*\) = 0|Destroy\(I(\w+)\)))";
    std::map<std::string, int> alive;
    for (const auto& found : Matches(outcome.trace, call))
        found[1].empty() ? --alive[found[2]] : ++alive[found[1]];
    const bool balanced = std::all_of(alive.begin(), alive.end(), [](const auto& kind) { return kind.second == 0; });
    return balanced ? testing::AssertionSuccess() : testing::AssertionFailure() << outcome.trace;
}
