// What the platform is told by its environment.
#include "support/Tool.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace
{

TEST(Platform, RefusesWhatItCannotPlayOrTrace)
{
    const Process folder;
    const std::string pipe = folder.Path("pipe"); // nobody reads or writes it
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string large = folder.Path("large");
    std::ofstream(large).seekp(64 << 20) << '#';
    const std::string cases[][3] = {
        {"TVS_SCENARIO", "/a\nb", "scenario /a\\nb: No such file or directory\n"},
        {"TVS_SCENARIO", pipe, "scenario " + pipe + ": not a regular file\n"},
        {"TVS_SCENARIO", "/proc/sys/kernel/ostype",
         "scenario /proc/sys/kernel/ostype: neither a group, a key nor a comment: Linux\n"},
        {"TVS_SCENARIO", "/proc/self/environ", "scenario /proc/self/environ: holds a zero byte\n"},
        {"TVS_SCENARIO", "/proc/self/mem", "scenario /proc/self/mem: Input/output error\n"},
        {"TVS_SCENARIO", large, "scenario " + large + ": larger than 64 MiB\n"},
        {"TVS_TRACE", "/a\nb/c", "trace /a\\nb/c: No such file or directory\n"},
        {"TVS_TRACE", pipe, "trace " + pipe + ": No such device or address\n"},
    };
    for (const auto& [setting, path, line] : cases) {
        const Outcome outcome = RunTool("99\n", "", {{setting, path}});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, line);
    }
}

TEST(Platform, TracesToStandardErrorOrNotAtAll)
{
    const std::string trace = "TVServiceAPI::CreatePipelineUtility(1, 0) = 0\n"
                              "IPipelineUtility::GetPIDSetStatus() ! two\\nlines\n"
                              "TVServiceAPI::Destroy(IPipelineUtility)\n";
    for (const auto& [path, shown] : {std::pair<const char*, std::string>("-", trace),
                                      {"", ""},
                                      {"/dev/full", "trace /dev/full: No space left on device\n"}}) {
        const Outcome outcome =
            RunTool("5 15 99 99", "[throw]\nIPipelineUtility::GetPIDSetStatus=two\\nlines\n", {{"TVS_TRACE", path}});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, shown + "TVS Debug: two lines\n");
    }
}

} // namespace
