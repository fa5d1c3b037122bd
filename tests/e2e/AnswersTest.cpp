// The menus beside their recorded sessions: odd words, operations that refuse, objects that are not made.
// DEBUGUTIL_RECORD=1 writes the table anew.
#include "support/Recording.h"
#include "support/Tool.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

namespace
{

const std::string kEnd = "‹end of input›\n";

// What is printed and called between the last of the words and the end of the input behind it, on one line.
std::string SaidAfter(const std::string& words, const std::string& scenario)
{
    const std::string told = Tell(words, scenario);
    EXPECT_TRUE(std::regex_search(told, std::regex("<top>\ncmd> (" + kEnd + ")?$"))) << words << "\n" << told;
    const std::size_t end = told.find(kEnd);
    const std::size_t word = told.rfind("›\n", end);
    return std::regex_replace(told.substr(word + 4, end - word - 4), std::regex("\n"), "⏎");
}

TEST(Answers, AreThoseOfTheTable)
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

} // namespace
