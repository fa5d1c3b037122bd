// The TPMS menu beside its recorded sessions: odd words, operations that refuse, objects that are not made, and anything
// at all. DEBUGUTIL_RECORD=1 writes the table anew.
#include "support/Recording.h"
#include "support/Tool.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <regex>
#include <sstream>

namespace
{

const std::string kEnd = "‹end of input›\n";

// What is printed and called between the last of the words and the end of the input behind it, on one line.
std::string SaidAfter(const std::string& words, const std::string& scenario)
{
    const std::string told = Tell("6 " + words, scenario);
    EXPECT_TRUE(std::regex_search(told, std::regex("<top>\ncmd> (" + kEnd + ")?$"))) << words << "\n" << told;
    const std::size_t end = told.find(kEnd);
    const std::size_t word = told.rfind("›\n", end);
    return std::regex_replace(told.substr(word + 4, end - word - 4), std::regex("\n"), "⏎");
}

TEST(TPMSAnswers, AreThoseOfTheTable)
{
    const std::string table = ReadFile(ANSWERS_PATH);
    std::istringstream lines(table);
    std::string played, scenario, section;
    for (std::string line; std::getline(lines, line) && !HasFailure(); played += line + "\n") {
        static const std::regex row(R"(([-+\w ]+?)(?: \|( \S+=[^|]*?)? \| .*| \|( \S+=.*))?)");
        std::smatch match;
        if (line.rfind("---", 0) == 0) {
            section = line;
        } else if (section == "--- scenario") {
            scenario += line + "\n";
        } else if (!section.empty()) {
            EXPECT_TRUE(std::regex_match(line, match, row)) << line;
            const std::string fault = match.str(2) + match.str(3);
            line = match.str(1) + " |" + fault + " | " + SaidAfter(match[1], scenario + "[result]\n" + fault);
        }
    }
    if (std::getenv("DEBUGUTIL_RECORD") != nullptr && !HasFailure())
        std::ofstream(ANSWERS_PATH) << played;
    EXPECT_TRUE(IsSame(played, table));
}

class RandomSessions : public testing::TestWithParam<unsigned>
{
};

TEST_P(RandomSessions, EndCleanly)
{
    const auto meaningful = Words("99 0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 101 65535");
    const auto others = Words("x -1 -5 1x +2 0x10 2147483648 - \xC3\xBC 99999999999999999999 " + std::string(3, '\0'));
    for (unsigned seed = GetParam(); seed < GetParam() + 40 && !HasFailure(); ++seed) {
        std::mt19937 random(seed);
        std::string input = "6";
        for (auto count = random() % 60; count > 0; --count) {
            const auto& words = random() % 6 == 0 ? others : meaningful;
            (input += random() % 3 == 0 ? "\n" : " ") += words[random() % words.size()];
        }
        const Outcome outcome = RunTool(input);
        EXPECT_EQ(outcome.status, 0) << seed << ": " << input << "\n" << outcome.err;
        EXPECT_TRUE(IsBalanced(outcome)) << seed << ": " << input;
    }
}

INSTANTIATE_TEST_SUITE_P(TPMS, RandomSessions, testing::Values(0U, 40U, 80U));

} // namespace
