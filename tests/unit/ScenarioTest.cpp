// Scenarios: every key with its default and bounds, and every refusal.
#include "host/call/Scenario.h"
#include "host/call/Text.h"
#include "support/Process.h"

#include <glib.h>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>

namespace
{

// All of a scenario in a line. What is not there is a dash.
std::string Shown(const host::Scenario& s)
{
    std::ostringstream text;
    const auto show = [&](const auto& value) { value ? text << ' ' << *value : text << " -"; };
    text << std::boolalpha << s.antennaMode << ' ' << s.serviceMode << ' ' << s.captionExist << ' ' << s.pidSetStatus
         << ' ' << s.zoomAvailable << ' ' << s.zoomSharingType;
    for (const auto& [key, value] : s.vconf)
        text << ' ' << key << '=' << value;
    text << " latest";
    for (const auto* id : {&s.latestRFCable, &s.latestRFAir, &s.latestVelunaCable, &s.latestVelunaAir})
        show(*id);
    for (const host::ScenarioService& service : s.services) {
        text << ";";
        for (const auto& [tag, value] : service.tags)
            text << ' ' << tag << '=' << (value ? std::to_string(*value) : "-");
        text << " title";
        show(service.title);
    }
    for (std::size_t i = 0; i < host::kOperationCount; ++i) {
        const auto& [result, object, thrown] = s.faults[i];
        if (!result && !thrown)
            continue;
        text << "; " << host::NameOf(static_cast<host::Op>(i));
        show(result);
        text << (object ? " object" : "") << (thrown ? " throws " + *thrown : "");
    }
    return host::OneLine(text.str());
}

std::string Parsed(const std::string& text)
{
    try {
        return Shown(text == "(built in)" ? host::BuiltInScenario() : host::ParseScenario("/s", text));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

// Each line of the file: the text of a scenario, escaped as in C, and what comes of it.
TEST(Scenario, IsTakenOrRefusedToTheLetter)
{
    std::istringstream cases(ReadFile(RECORD_PATH "/scenarios"));
    int count = 0;
    for (std::string line; std::getline(cases, line); ++count) {
        const std::size_t arrow = line.find(" => ");
        const std::unique_ptr<char, decltype(&g_free)> text(g_strcompress(line.substr(0, arrow).c_str()), g_free);
        EXPECT_EQ(Parsed(text.get()), line.substr(arrow + 4)) << line;
    }
    EXPECT_GE(count, 50);
}

} // namespace
