// A console session. The first line of an input has faults, separated by blanks: NAME=throw, NAME=object or NAME=NUMBER,
// with NAME#N for the Nth call only. The other lines are typed. An input with any other fault is invalid.
#include "support/Session.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const host::Scenario builtIn = host::BuiltInScenario();
    host::Scenario scenario = builtIn;
    const std::string input(data, data + size), faults = input.substr(0, input.find('\n'));
    std::istringstream words(faults);
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('='), mark = word.substr(0, equals).find('#');
        const auto operation = host::OperationNamed(word.substr(0, std::min(mark, equals)));
        if (!operation || equals == std::string::npos)
            return -1;
        host::Faults& all = scenario.faults[static_cast<std::size_t>(*operation)];
        host::Fault& fault =
            mark == std::string::npos ? all.always : all.byCall[static_cast<unsigned>(std::atoi(&word[mark + 1]))];
        const std::string effect = word.substr(equals + 1);
        fault.object = effect == "object" && host::IsFactory(*operation);
        if (effect == "throw")
            fault.thrown = "fault";
        else
            fault.result = fault.object ? 1 : std::atoi(effect.c_str());
    }
    assert(PlaySession(scenario, input.substr(std::min(faults.size() + 1, input.size()))).problems.empty());
    return 0;
}
