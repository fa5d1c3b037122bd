// Every row of every menu: the input ends behind every word, and every operation has every fault.
#include "support/Match.h"
#include "support/Process.h"
#include "support/Screens.h"
#include "support/Session.h"
#include "support/WordByWord.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace
{

const std::string kThrown = " ! simulated fault\n", kTold = ": simulated fault\n";
const std::string kStop = "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"Stop\", 2) = true\n";

// The television of all rows; one of its services has no number, which one of them complains of.
const host::Scenario& Tv()
{
    static const auto tv =
        host::ParseScenario("(test)", host::kBuiltInScenario + std::string("[service]\n12=1\ntitle=x\n"));
    return tv;
}

struct Rows : testing::Test {
    Rows() { testing::internal::CaptureStderr(); }
    ~Rows() override { testing::internal::GetCapturedStderr(); }
    bool Next() { return !HasFailure() && std::getline(rows, row); }

    std::istringstream rows{ReadFile(ROWS_PATH)};
    std::string row;
};

// The session without its signals, which come when they like.
std::string Play(const std::string& words)
{
    const Session session = PlaySession(Tv(), words);
    EXPECT_EQ(session.wrong, "") << words;
    return Replaced(session.record, "\tSIGNAL_.*\n");
}

// What is printed and called from there on; menus stand as their names. Two menus ask once more before they are left.
std::string From(const std::string& record, std::size_t begin)
{
    return FoldMenus(Replaced(record.substr(begin), "‹.*›\n|executing: Exit\n|(Off:0 / On:1 |major> )‹99›\n"));
}

TEST_F(Rows, AreLeftAtTheEndOfTheInput)
{
    const std::string menu = "(^|\n)(cmd| select num)> $",
                      released = R"(^(TVServiceAPI::Destroy\(I\w+\)\n)*(<\w+>\ncmd> )?$)";
    while (Next()) {
        std::string left; // what is printed and called when the last menu is left by 99
        for (std::size_t end = 0; end != std::string::npos; end = row.find(' ', end + 1)) {
            const std::string words = row.substr(0, end);
            const std::string record = Play(words);
            const std::size_t ended = record.find(WordByWord::Told(""));
            const std::string before = record.substr(0, ended), behind = From(record, ended);
            if (!Matches(before, menu).empty()) {
                left = From(Play(words + " 99 99 99 99"), ended);
                EXPECT_EQ(behind, left) << words;
            } else if (before.rfind("tvs> ") == before.size() - 5) {
                EXPECT_EQ(behind, kStop);
            } else {
                // The answers that were not given are asked for no more, and nothing is sent.
                const std::size_t more = std::max(behind.size(), left.size()) - left.size();
                EXPECT_EQ(behind.substr(more), left) << words;
                EXPECT_EQ(Replaced(behind.substr(0, more), released), "") << words << "\n" << behind;
            }
        }
    }
}

std::vector<host::Fault> FaultsOf(host::Op operation)
{
    // A result of 0, of a factory without an object, and one of -1, of a factory also with one.
    std::vector<host::Fault> faults = {{{}, false, "simulated fault", {}}, {0, false, {}, {}}, {-1, false, {}, {}}};
    if (host::IsFactory(operation))
        faults.push_back({-1, true, {}, {}});
    return faults;
}

// Empty if each exception is told in a line, with nothing in between but what releases, and signals.
std::string WrongExceptions(const std::string& record, host::Op operation)
{
    const auto thrown = Matches(record, kThrown).size(), told = Matches(record, kTold).size();
    // What fails to be released while an exception is on its way is not told.
    if (operation == host::Op::TVServiceAPI_Destroy ? (told == 0 && thrown > 0) || told > thrown : told != thrown)
        return std::to_string(thrown) + " exceptions, told " + std::to_string(told);
    const std::size_t first = record.find(kThrown);
    std::istringstream lines(first == std::string::npos ? kTold : record.substr(first + kThrown.size()));
    std::string line;
    while (std::getline(lines, line) && (line.rfind("TVServiceAPI::Destroy", 0) == 0 || line[0] == '\t'))
        ;
    return (line + "\n").find(kTold) == std::string::npos ? "behind an exception: " + line : "";
}

TEST_F(Rows, AreLeftInOrderWithEveryFault)
{
    std::array<bool, host::kOperationCount> called = {};
    while (Next()) {
        const Session honest = PlaySession(Tv(), row);
        for (std::size_t i = 0; i < host::kOperationCount; ++i) {
            if (honest.calls[i] == 0)
                continue;
            called[i] = true;
            host::Scenario scenario = Tv();
            for (const host::Fault& fault : FaultsOf(host::Op(i))) {
                scenario.faults[i].always = fault;
                for (const char* const end : {"", " 99 99 99 99 99"}) {
                    const Session session = PlaySession(scenario, row + end);
                    EXPECT_EQ(session.wrong + WrongExceptions(session.record, host::Op(i)), "")
                        << host::NameOf(host::Op(i)) << "\n"
                        << session.record;
                }
            }
        }
    }
    called[std::size_t(host::Op::IZoomControl_GetZoomWindowSize)] = called[std::size_t(host::Op::_TCApiAssert)] = true;
    for (std::size_t i = 0; i < host::kOperationCount; ++i)
        EXPECT_TRUE(called[i]) << host::NameOf(host::Op(i)); // but those two, which no row calls
}

} // namespace
