// The top-level menu on real pipes.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gmock/gmock.h>

namespace
{

TEST(Shell, AnswersEveryWord)
{
    struct Case {
        const char* words;
        std::string answer; // the menu stands before it and behind it
    };
    const std::string todo = "Command not implemented\n";
    const std::string unknown = "Option was not recognised ";
    const Case cases[] = {
        {"7", unknown + "7\n"},
        {"0", unknown + "0\n"},
        {"-5", unknown + "-5\n"},
        {"+7", unknown + "7\n"},
        {"99999999999999999999", unknown + "2147483647\n"},
        {"-99999999999999999999", unknown + "-2147483648\n"},
        {"2147483648", unknown + "2147483647\n"},
        {"002", "executing: TV Player\n" + todo},
        {"2 3\r\n", "executing: TV Player\n" + todo + kTopMenu + "executing: TV Plug in\n" + todo},
        {"4", "executing: Dravel-Provider\n" + todo},
        {"abc", ""},
        {"1x", ""},
        {"-", ""},
        {"0x10", ""},
        {"\xC3\xA4\xFF", ""},
    };
    for (const Case& c : cases) {
        const Outcome outcome = RunTool(c.words);
        EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + c.answer + kTopMenu) << c.words;
        EXPECT_EQ(outcome.status, 0) << c.words;
        EXPECT_EQ(outcome.err, "") << c.words;
    }
}

TEST(Shell, LeavesOnExitAndAtTheEndOfInput)
{
    const Outcome left = RunTool("99\n2\n");
    EXPECT_EQ(left.out, "DebugUtil\n" + kTopMenu + "executing: Exit\n");
    EXPECT_EQ(left.status, 0);
    const Outcome ended = RunTool("");
    EXPECT_EQ(ended.out, "DebugUtil\n" + kTopMenu);
    EXPECT_EQ(ended.status, 0);
    EXPECT_TRUE(ended.trace.empty());
}

TEST(Shell, SurvivesWordsThatNobodyTypes)
{
    const std::string zeros(3, '\0');
    const Outcome outcome =
        RunTool(std::string(100'000, '9') + " " + zeros + " 2" + zeros + " " + std::string(100'000, 'x'));
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "Option was not recognised 2147483647\n" + kTopMenu + kTopMenu +
                               kTopMenu + kTopMenu);
    EXPECT_EQ(outcome.status, 0);
}

TEST(Shell, CutsAWordThatDoesNotEnd)
{
    const Outcome outcome = RunTool("2" + std::string(3'000'000, '0') + " 2");
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "Option was not recognised 2147483647\n" + kTopMenu +
                               "executing: TV Player\nCommand not implemented\n" + kTopMenu);
}

TEST(Shell, ReportsAPlugInThatIsNotThere)
{
    const Outcome outcome = RunTool("6\n2\n", "", {{"DEBUGMENU_SYSROOT", "/nowhere"}});
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "executing: TVS HT Debug\n" + kTopMenu +
                               "executing: TV Player\nCommand not implemented\n" + kTopMenu);
    EXPECT_THAT(outcome.err, testing::StartsWith("/nowhere/usr/lib/libht-debugmenu.so: "));
    EXPECT_EQ(outcome.status, 0);
}

TEST(Shell, GoesOnWhenItsReaderIsGone)
{
    Tool tool;
    tool.WaitFor("cmd> ");
    tool.CloseOutput();
    tool.Type("5\n6\n0\n0\n99\n99\n");
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(IsBalanced(outcome));
    EXPECT_EQ(outcome.trace.size(), 3U);
}

// A socket of the platform must never be taken for the console.
TEST(Shell, RunsWithClosedDescriptors)
{
    const std::string typed = "printf '1\\n99\\n99\\n' | $TOOL ";
    EXPECT_EQ(RunShell("$TOOL <&-; echo $?"), "DebugUtil\n" + kTopMenu + "0\n");
    EXPECT_EQ(RunShell("{ " + typed + ">&-; echo $?; } 2>&1"), "0\n");
    const std::string withoutErr = RunShell(typed + "2>&-; echo $?");
    EXPECT_NE(withoutErr.find("executing: TVS\n"), std::string::npos);
    EXPECT_EQ(withoutErr.find("Failed"), std::string::npos);
    EXPECT_THAT(withoutErr, testing::EndsWith("executing: Exit\n0\n"));
}

} // namespace
