// What one more word prints and calls: every row, unusual words, operations that fail, factories that return no object.
#include "support/Match.h"
#include "support/Recording.h"
#include "support/Tool.h"

#include <gtest/gtest.h>
#include <sstream>

namespace
{

// Returns what is printed and called between the last word and the end of the input, on one line. The lines of signals
// are left out: another thread prints them.
std::string AnswerTo(const std::string& words, const std::string& scenario)
{
    const std::string inputEnd = "‹end of input›\n", record = PlayWithEcho(words, scenario);
    EXPECT_FALSE(Matches(record, "(<top>\ncmd> (" + inputEnd + ")?|\"Stop\", 2\\) = true\n)$").empty())
        << words + "\n" + record;
    const std::size_t end = record.find(inputEnd);
    const std::size_t lastWord = record.rfind("›\n", end);
    return Replaced(Replaced(record.substr(lastWord + 4, end - lastWord - 4), "\tSIGNAL_.*\n"), "\n", "⏎");
}

// answers.txt has a scenario, then headings and rows: words | OPERATION=RESULT | answer.
TEST(Answers, MatchTheTable)
{
    const std::string row = R"(^([-+\w ]+?)(?: \|( \S+=[^|]*?)? \| .*| \|( \S+=.*))?$)";
    std::istringstream lines(ReadFile(ANSWERS_PATH));
    std::string table, scenario, heading;
    for (std::string line; std::getline(lines, line) && !HasFailure(); table += line + "\n") {
        if (line.rfind("---", 0) == 0) {
            heading = line;
        } else if (heading == "--- scenario") {
            scenario += line + "\n";
        } else if (!heading.empty()) {
            const auto match = Matches(line, row);
            ASSERT_EQ(match.size(), 1U) << "this line is not a row of the table: " << line;
            const std::string words = match[0][1], fault = match[0][2] + match[0][3];
            line = words + " |" + fault + " | " + AnswerTo(words, scenario + "[result]\n" + fault);
        }
    }
    ASSERT_FALSE(HasFailure());
    EXPECT_TRUE(MatchesRecord(ANSWERS_PATH, table));
}

} // namespace
