#include "support/Recording.h"

#include "support/Match.h"
#include "support/Tool.h"

#include <cerrno>
#include <fstream>
#include <sstream>

namespace
{

const std::string kMenus = SESSION_PATH "/menus.session";

std::string Run(const char* tool, const std::string& words, const std::string& scenario)
{
    Tool process(scenario, {{"TVS_TRACE", "-"}}, {"sh", "-c", std::string("exec ") + tool + " 2>&1"});
    process.Type(words);
    const int status = process.End();
    return FoldMenus(process.Text() + (status == 0 ? "" : "exit status " + std::to_string(status) + "\n"));
}

} // namespace

std::string PlayWithEcho(const std::string& words, const std::string& scenario)
{
    return Run(ECHOING_TOOL_PATH, words, scenario);
}

std::string Play(const std::string& words, const std::string& scenario) { return Run(TOOL_PATH, words, scenario); }

std::string FoldMenus(std::string text)
{
    static const auto menus = Matches(ReadFile(kMenus), R"((<\w+>\n)([^<]+))");
    for (const auto& menu : menus)
        for (std::size_t at = 0; (at = text.find(menu[2], at)) != std::string::npos;)
            text.replace(at, menu[2].size(), menu[1]);
    return text;
}

testing::AssertionResult IsSame(const std::string& seen, const std::string& expected)
{
    if (seen == expected)
        return testing::AssertionSuccess();
    Process diff;
    std::ofstream(diff.Path("expected")) << expected;
    diff.Start({"diff", "--unified", "--label=expected", "--label=seen", diff.Path("expected"), "-"});
    diff.Type(seen);
    diff.End();
    return testing::AssertionFailure() << "\n" << diff.Text();
}

testing::AssertionResult MatchesRecord(const std::string& path, const std::string& seen)
{
    if (!Matches(seen, "99 (?:: )?Exit(?:\n|⏎)={36}(?:\n|⏎)(?!tvs> )").empty())
        return testing::AssertionFailure()
               << "a menu is not the one in " << kMenus << "; correct it there before anything is recorded:\n"
               << IsSame(seen, ReadFile(path)).message();
    if (SettingOr("DEBUGUTIL_RECORD", 0) != 0)
        std::ofstream(path) << seen;
    const auto same = IsSame(seen, ReadFile(path));
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    return same ? same
                : testing::AssertionFailure()
                      << same.message() << "To record it: DEBUGUTIL_RECORD=1 " << program_invocation_name
                      << " --gtest_filter=" << test->test_suite_name() << "." << test->name();
}

void ExpectExchanges(const std::string& name, const std::vector<std::string>& required,
                     const std::function<std::string(const std::string& request)>& answer)
{
    const std::string path = EXCHANGES_PATH "/" + name;
    std::istringstream lines(ReadFile(path));
    std::string exchanges, last;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("> ", 0) != 0)
            continue;
        const std::string next = answer(line.substr(2)) + "\n";
        exchanges += (next == last ? "" : last) + line + "\n";
        last = next;
    }
    EXPECT_TRUE(MatchesRecord(path, exchanges + last));
    for (const std::string& request : required)
        EXPECT_TRUE(("\n" + exchanges).find("\n> " + request + " ") != std::string::npos)
            << path << " has no request \"> " << request << "\"";
}
