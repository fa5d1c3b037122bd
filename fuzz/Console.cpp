// The words of a console session. The first line of an input holds the faults, each three letters: of which operation,
// what it does instead of its work (t: throws, o: the object and 1, else a number), and at which call (a digit from 1)
// or always; the rest is typed.
#include "support/Session.h"

#include <cassert>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const host::Scenario television = host::BuiltInScenario();
    host::Scenario scenario = television;
    std::istringstream input(std::string(data, data + size));
    for (char letters[3]; input.get() != '\n' && input.unget() && input.read(letters, 3);) {
        const auto operation = static_cast<unsigned char>(letters[0]) % host::kOperationCount;
        const unsigned call = static_cast<unsigned>(letters[2] - '0');
        host::Faults& all = scenario.faults[operation];
        host::Fault& fault = call >= 1 && call <= 9 ? all.byCall[call] : all.always;
        fault.object = letters[1] == 'o' && host::IsFactory(static_cast<host::Op>(operation));
        if (letters[1] == 't')
            fault.thrown = "fault";
        else
            fault.result = fault.object ? 1 : letters[1] - '0';
    }
    const std::string words = input ? input.str().substr(static_cast<std::size_t>(input.tellg())) : "";
    assert(PlaySession(scenario, words).wrong.empty());
    return 0;
}
