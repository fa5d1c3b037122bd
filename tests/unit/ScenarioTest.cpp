// What the host platform reads: numbers, plug-ins and scenarios (defaults, bounds and errors of the keys).
#include "host/call/Scenario.h"
#include "debugmenu/DebugMenuUtility.h"
#include "host/call/Text.h"
#include "support/Match.h"
#include "support/Process.h"
#include "support/Recording.h"

#include <algorithm>
#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <type_traits>

namespace
{

// Prints a scenario on one line, with the faults of each call. A dash is a missing value.
std::string Shown(const host::Scenario& s)
{
    std::ostringstream text;
    const auto show = [&](const auto& value) {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
            text << ' ' << value;
        else
            value ? text << ' ' << *value : text << " -";
    };
    text << std::boolalpha;
#define KEY(group, key, type, member, value) show(s.member);
#include "host/call/ScenarioKeys.def"
#undef KEY
    for (const auto& [key, value] : s.vconf)
        text << ' ' << key << '=' << value;
    for (const host::ScenarioService& service : s.services) {
        text << ";";
        for (const auto& [tag, value] : service.tags)
            text << ' ' << tag << '=' << (value ? std::to_string(*value) : "-");
        text << " title";
        show(service.title);
    }
    for (std::size_t i = 0; i < host::kOperationCount; ++i) {
        std::map<unsigned, host::Fault> faults = s.faults[i].byCall;
        faults[0]; // any other call
        for (auto& [call, fault] : faults) {
            fault = s.FaultOf(host::Op(i), call);
            if (!fault.result && !fault.thrown && !fault.delay)
                continue;
            text << "; " << host::NameOf(host::Op(i)) << (call > 0 ? "#" + std::to_string(call) : "");
            show(fault.result);
            text << (fault.object ? " object" : "") << (fault.thrown ? " throws " + *fault.thrown : "");
            text << (fault.delay ? " after " + std::to_string(fault.delay->count()) : "");
        }
    }
    for (const auto& [type, data] : s.signals)
        text << "; signal " << type << ' ' << int{data.bytes[0]} << ' ' << int{data.bytes[1]} << ' '
             << int{data.bytes[host::kSignalBytes - 1]};
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

TEST(Host, RecognizesNumbers)
{
    for (const char* number : {"0", "9", "+5", "-7", "007", "99999999999999999999999"})
        EXPECT_TRUE(TCDebugMenuUtility::IsNumber(number)) << number;
    for (const char* word : {"", "+", "-", "+-1", "1-", " 1", "1 ", "1.5", "0x1F", "a", "1/", "1:", "\xB2"})
        EXPECT_FALSE(TCDebugMenuUtility::IsNumber(word)) << word;
}

TEST(Host, RejectsAPlugInWithAnUndefinedSymbol)
{
    unsetenv("DEBUGMENU_SYSROOT");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(TCDebugMenuUtility::OpenLibrary(PLUG_IN_PATH, "ht_subdebugmenu")); // this program exports nothing
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("undefined symbol: "));
}

// Each line of the file has the text of a scenario, escaped as in C, and the parsed scenario or the error.
TEST(Scenario, IsParsedOrRejectedAsRecorded)
{
    std::istringstream cases(ReadFile(RECORD_PATH "/scenarios"));
    std::string results;
    for (std::string line; std::getline(cases, line);) {
        line.resize(std::min(line.size(), line.find(" => ")));
        const std::unique_ptr<char, decltype(&g_free)> text(g_strcompress(line.c_str()), g_free);
        results += line + " => " + Parsed(text.get()) + "\n";
    }
    EXPECT_TRUE(MatchesRecord(RECORD_PATH "/scenarios", results));
}

} // namespace
