// Parses any text as a scenario. A session with a valid one must end in order; an error must be one short line.
#include "host/call/Text.h"
#include "support/Session.h"

#include <cassert>
#include <glib.h>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(data, data + size);
    try {
        const host::Scenario scenario = host::ParseScenario("(fuzz)", text);
        if (text.find("[delay]") == std::string::npos) {
            const Session session = PlaySession(
                scenario, "5 6 0 13 7 0 8 1 15 99 6 4 11 18 1 2 3 99 12 4 99 15 16 1 0 19 1 2 10 99 21 1 99");
            assert(session.problems.empty());
        }
    } catch (const std::runtime_error& error) {
        const std::string reason = error.what(), line = host::OneLine(reason);
        assert(line.find('\n') == std::string::npos && line.size() < 1500);
        // Group, key and value have at most 80 characters each.
        assert(g_utf8_strlen(reason.c_str(), -1) < 380);
    }
    return 0;
}
