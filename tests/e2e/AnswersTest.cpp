// The menus beside their recorded sessions: odd words, operations that refuse, objects that are not made.
// DEBUGUTIL_RECORD=1 writes the table anew.
#include "support/Match.h"
#include "support/Recording.h"
#include "support/Tool.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace
{

const std::string kEnd = "‹end of input›\n";

// What is printed and called between the last of the words and the end of the input behind it, on one line.
std::string SaidAfter(const std::string& words, const std::string& scenario)
{
    const std::string told = Tell(words, scenario);
    EXPECT_TRUE(!Matches(told, "<top>\ncmd> (" + kEnd + ")?$").empty()) << words << "\n" << told;
    const std::size_t end = told.find(kEnd);
    const std::size_t word = told.rfind("›\n", end);
    return Replaced(told.substr(word + 4, end - word - 4), "\n", "⏎");
}

TEST(Answers, AreThoseOfTheTable)
{
    const std::string table = ReadFile(ANSWERS_PATH);
    std::istringstream lines(table);
    std::string played, scenario, section;
    for (std::string line; std::getline(lines, line) && !HasFailure(); played += line + "\n") {
        const char* const row = R"(^([-+\w ]+?)(?: \|( \S+=[^|]*?)? \| .*| \|( \S+=.*))?$)";
        if (line.rfind("---", 0) == 0) {
            section = line;
        } else if (section == "--- scenario") {
            scenario += line + "\n";
        } else if (!section.empty()) {
            const auto match = Matches(line, row).at(0);
            const std::string fault = match.at(2) + match.at(3);
            line = match[1] + " |" + fault + " | " + SaidAfter(match[1], scenario + "[result]\n" + fault);
        }
    }
    if (std::getenv("DEBUGUTIL_RECORD") != nullptr && !HasFailure())
        std::ofstream(ANSWERS_PATH) << played;
    EXPECT_TRUE(IsSame(played, table));
}

} // namespace
