// The menus beside their recorded sessions: odd words, operations that refuse, objects that are not made.
#include "support/Match.h"
#include "support/Recording.h"
#include "support/Tool.h"

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
    std::istringstream lines(ReadFile(ANSWERS_PATH));
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
    ASSERT_FALSE(HasFailure());
    EXPECT_TRUE(IsAsRecorded(ANSWERS_PATH, played));
}

} // namespace
