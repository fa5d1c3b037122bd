#include "support/Outcome.h"

#include <algorithm>
#include <map>
#include <regex>

testing::AssertionResult IsBalanced(const Outcome& outcome)
{
    static const std::regex call(R"(TVServiceAPI::(?:Create(?!SignalSubscriber)(\w+)\(.*\) = 0|Destroy\(I(\w+)\)))");
    const std::string& trace = outcome.trace;
    std::map<std::string, int> alive;
    for (std::sregex_iterator found(trace.begin(), trace.end(), call), end; found != end; ++found)
        (*found)[1].matched ? ++alive[found->str(1)] : --alive[found->str(2)];
    const bool balanced = std::all_of(alive.begin(), alive.end(), [](const auto& kind) { return kind.second == 0; });
    return balanced ? testing::AssertionSuccess() : testing::AssertionFailure() << trace;
}
