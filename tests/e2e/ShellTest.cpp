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

// A file that is full and then has room, a trace that is full, an input that does not wait.
TEST(Shell, GivesInToNothing)
{
    const std::pair<const char*, std::string> cases[] = {
        {"exec 3<>in; (ulimit -f 4; exec $TOOL <&3 >>out 2>err) & printf '2 %.0s' 1 2 3 4 5 6 7 >&3; "
         "until grep -q . err; do sleep 0.01; done; : >out; echo 5 15 99 99 >&3; wait $!; cat err; "
         "grep -c 'GetPIDSetStatus.0' out",
         "console: text was lost: File too large\n1\n"},
        {"for i in 1 2 3 4; do echo 5 7 0 7 1 15 99; done >words; (ulimit -f 1; TVS_TRACE=torn $TOOL <words 2>&1 "
         ">/dev/null); tail -c 1 torn | wc -l; tail -n 1 torn",
         "trace torn: File too large\n1\nTVServiceAPI::Destroy(ISourceControl)\n"},
        {"exec 3<>in; mix() { perl -MFcntl -e 'fcntl(STDIN, F_SETFL, O_NONBLOCK)' <&3; }; mix; $TOOL <&3 >out & "
         "until grep -q Exit out; do sleep 0.01; done; mix; echo 2 >&3; until grep -q Player out; do sleep 0.01; done; "
         "sleep 0.1; mix; printf 9 >&3; sleep 0.1; echo 9 >&3; wait $!; tail -n 1 out",
         "cmd> executing: Exit\n"},
    };
    for (const auto& [command, shown] : cases) {
        const Process folder;
        EXPECT_EQ(RunShell("cd " + folder.Path("") + "; mkfifo in; " + command), shown);
    }
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
