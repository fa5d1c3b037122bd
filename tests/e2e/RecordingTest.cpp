// Plays the recorded sessions of every command and compares each byte of their output.
#include "support/Recording.h"
#include "support/Match.h"
#include "support/Process.h"

#include <filesystem>
#include <set>

namespace
{

std::set<std::string> SessionNames()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SESSION_PATH))
        names.insert(entry.path().stem());
    names.erase("menus");
    return names;
}

using Recorded = testing::TestWithParam<std::string>;

TEST_P(Recorded, PlaysAsRecorded)
{
    const std::string path = SESSION_PATH "/" + GetParam() + ".session", text = ReadFile(path);
    const std::string given = text.substr(0, text.find("--- record\n"));
    const auto parts = Matches(given, R"(^(?:--- scenario\n((?:.*\n)*))?--- input\n((?:.*\n)+)$)");
    ASSERT_EQ(parts.size(), 1U) << path << " does not begin with \"--- scenario\" or \"--- input\" and lines below";
    const std::string scenario = parts[0][1], words = parts[0][2];

    const std::string record = PlayWithEcho(words, scenario);

    EXPECT_TRUE(MatchesRecord(path, given + "--- record\n" + record + "\n"));
    EXPECT_TRUE(IsSame(Play(words, scenario), Replaced(record, "(‹.*›|«.*»)\n")));
}

INSTANTIATE_TEST_SUITE_P(Sessions, Recorded, testing::ValuesIn(SessionNames()),
                         [](const auto& session) { return session.param; });

} // namespace
