// The shell on pipes and descriptors that nobody types on.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gmock/gmock.h>

namespace
{

TEST(Shell, SurvivesWordsThatNobodyTypes)
{
    const std::string zeros(3, '\0');
    const Outcome outcome =
        RunTool(std::string(100'000, '9') + " " + zeros + " 2" + zeros + " \xFF " + std::string(100'000, 'x'));
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "Option was not recognised 2147483647\n" + kTopMenu + kTopMenu +
                               kTopMenu + kTopMenu + kTopMenu);
    EXPECT_EQ(outcome.status, 0);
}

TEST(Shell, ReportsAPlugInThatIsNotThere)
{
    const Outcome outcome = RunTool("6\n", "", {{"DEBUGMENU_SYSROOT", "/nowhere"}});
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "executing: TVS HT Debug\n" + kTopMenu);
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
    EXPECT_THAT(withoutErr, testing::HasSubstr("executing: TVS\n"));
    EXPECT_THAT(withoutErr, testing::Not(testing::HasSubstr("Failed")));
    EXPECT_THAT(withoutErr, testing::EndsWith("executing: Exit\n0\n"));
}

} // namespace
