// Plays every row of every menu, with the words of the rows in answers.txt. The sessions end after each of the words, and
// run with every fault of every operation.
#include "support/Match.h"
#include "support/Process.h"
#include "support/Recording.h"
#include "support/Session.h"
#include "support/WordByWord.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace
{

const std::string kThrown = " ! simulated fault\n", kReported = ": simulated fault\n";
const std::string kStop = "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"Stop\", 2) = true\n";

// The built-in scenario with one more service, which has no channel number, so that one row calls the platform's log.
const host::Scenario& RowsScenario()
{
    static const auto scenario =
        host::ParseScenario("(test)", host::kBuiltInScenario + std::string("[service]\n12=1\ntitle=x\n"));
    return scenario;
}

struct Rows : testing::Test {
    Rows()
    {
        EXPECT_NE(rows.str(), "") << ANSWERS_PATH " has no rows";
        testing::internal::CaptureStderr();
    }
    ~Rows() override { testing::internal::GetCapturedStderr(); }
    bool Next() { return !HasFailure() && std::getline(rows, row); }

    // The last section of answers.txt, without its faults and answers.
    const std::string section = Replaced(ReadFile(ANSWERS_PATH), "(?s)^.*\n--- rows.*?\n");
    std::istringstream rows{Replaced(section, R"((?m) \| \|.*$|^[^|\n]* \| [^| ].*\n)")};
    std::string row;
};

// The record of a session without the lines of signals, whose order varies.
std::string RecordOf(const std::string& words)
{
    const Session session = PlaySession(RowsScenario(), words);
    EXPECT_EQ(session.problems, "") << words;
    return Replaced(session.record, "\tSIGNAL_.*\n");
}

TEST_F(Rows, CoverEveryRowOfEveryMenu)
{
    const std::string shownAndChosen = R"(={36}\n([^‹]*?) ?99 (?:: )?Exit\n={36}\n(?!tvs)[^‹]*‹(.*)›\n)";
    std::map<std::string, std::set<std::string>> chosen; // by menu
    while (Next())
        for (const auto& found : Matches(RecordOf(row), shownAndChosen))
            chosen[found[1]].insert(found[2]);
    for (const auto& [menu, numbers] : chosen)
        for (const auto& line : Matches(menu, R"(\n ?(\d+)[. ].*)"))
            if (numbers.count(line[1]) == 0)
                ADD_FAILURE() << "answers.txt has no words for the row" << line[0] << "\nof the menu\n" << menu;
}

// The record from `begin` on, without words and with menus replaced by their names. Two menus prompt for a value after 99,
// too: that prompt is left out.
std::string EndOf(const std::string& record, std::size_t begin)
{
    return FoldMenus(Replaced(record.substr(begin), "‹.*›\n|executing: Exit\n|(Off:0 / On:1 |major> )‹99›\n"));
}

TEST_F(Rows, LeaveTheMenusAtTheEndOfTheInput)
{
    const std::string menuPrompt = "(^|\n)(cmd| select num)> $",
                      releases = R"(^(TVServiceAPI::Destroy\(I\w+\)\n)*(<\w+>\ncmd> )?$)";
    while (Next()) {
        std::string left; // the record after 99 in the last menu
        for (std::size_t end = 0; end != std::string::npos; end = row.find(' ', end + 1)) {
            const std::string words = row.substr(0, end);
            const std::string record = RecordOf(words);
            const std::size_t ended = record.find(WordByWord::Shown(""));
            const std::string before = record.substr(0, ended), after = EndOf(record, ended);
            if (!Matches(before, menuPrompt).empty()) {
                left = EndOf(RecordOf(words + " 99 99 99 99"), ended);
                EXPECT_EQ(after, left) << words;
            } else if (before.rfind("tvs> ") == before.size() - 5) {
                EXPECT_EQ(after, kStop);
            } else { // at a prompt for a value: no further prompt, only releases are called, then the menu ends
                const std::size_t size = std::max(after.size(), left.size()) - left.size();
                EXPECT_EQ(after.substr(size), left) << words;
                EXPECT_EQ(Replaced(after.substr(0, size), releases), "") << words << "\n" << after;
            }
        }
    }
}

std::vector<host::Fault> FaultsOf(host::Op operation)
{
    std::vector<host::Fault> faults = {{{}, false, "simulated fault", {}}, {0, false, {}, {}}, {-1, false, {}, {}}};
    if (host::IsFactory(operation))
        faults.push_back({-1, true, {}, {}}); // the factory fails, but fills in an object
    return faults;
}

// Returns what is wrong, or an empty text: each exception must be reported on a line, after only releases and signals.
std::string ExceptionProblems(const std::string& record, host::Op operation)
{
    const auto thrown = Matches(record, kThrown).size(), reported = Matches(record, kReported).size();
    const bool isRelease =
        operation == host::Op::TVServiceAPI_Destroy; // an exception of a release is dropped during another one
    if (isRelease ? (reported == 0 && thrown > 0) || reported > thrown : reported != thrown)
        return std::to_string(thrown) + " exceptions, " + std::to_string(reported) + " reported";
    const std::size_t first = record.find(kThrown);
    std::istringstream lines(first == std::string::npos ? kReported : record.substr(first + kThrown.size()));
    std::string line;
    while (std::getline(lines, line) && (line.rfind("TVServiceAPI::Destroy", 0) == 0 || line[0] == '\t'))
        ;
    return (line + "\n").find(kReported) == std::string::npos ? "after an exception: " + line : "";
}

TEST_F(Rows, ReleaseEverythingAfterEveryFault)
{
    while (Next()) {
        const Session withoutFault = PlaySession(RowsScenario(), row);
        for (std::size_t i = 0; i < host::kOperationCount; ++i) {
            const auto operation = static_cast<host::Op>(i);
            for (const host::Fault& fault :
                 withoutFault.calls[i] == 0 ? std::vector<host::Fault>() : FaultsOf(operation)) {
                host::Scenario scenario = RowsScenario();
                scenario.faults[i].always = fault;
                for (const char* const end : {"", " 99 99 99 99 99"}) {
                    const Session session = PlaySession(scenario, row + end);
                    EXPECT_EQ(session.problems + ExceptionProblems(session.record, operation), "")
                        << host::NameOf(operation) << "\n"
                        << session.record;
                }
            }
        }
    }
}

} // namespace
