// What the host platform reads and says outside the calls that it plays.
#include "debugmenu/DebugMenuUtility.h"
#include "host/call/Settings.h"
#include "host/call/Trace.h"
#include "support/Process.h"

#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{

TEST(Host, DrawsLinesAndKnowsNumbers)
{
    EXPECT_EQ(TCDebugMenuUtility::thickLine, std::string(36, '=') + '\n');
    EXPECT_EQ(TCDebugMenuUtility::thinLine, std::string(36, '-') + '\n');
    for (const char* number : {"0", "9", "+5", "-7", "007", "99999999999999999999999"})
        EXPECT_TRUE(TCDebugMenuUtility::IsNumber(number)) << number;
    for (const char* word : {"", "+", "-", "+-1", "1-", " 1", "1 ", "1.5", "0x1F", "a", "1/", "1:", "\xB2"})
        EXPECT_FALSE(TCDebugMenuUtility::IsNumber(word)) << word;
}

TEST(Host, RunsTheEntryOfALibraryOrSaysWhyNot)
{
    const auto open = [](const char* root, const char* path, const char* entry, bool opens) {
        setenv("DEBUGMENU_SYSROOT", root, 1);
        testing::internal::CaptureStderr();
        EXPECT_EQ(TCDebugMenuUtility::OpenLibrary(path, entry), opens) << path;
        return testing::internal::GetCapturedStderr();
    };
    setenv("TZ", "HALL0", 1);
    EXPECT_EQ(open("", "libc.so.6", "tzset", true), "");
    EXPECT_STREQ(tzname[0], "HALL");
    EXPECT_EQ(open("/nowhere", "/a.so", "entry", false),
              "/nowhere/a.so: /nowhere/a.so: cannot open shared object file: No such file or directory\n");
    const std::string reason = open("", "libc.so.6", "no_entry", false), end = ": undefined symbol: no_entry\n";
    EXPECT_EQ(reason.rfind("libc.so.6: ", 0), 0U) << reason;
    EXPECT_EQ(reason.find(end), reason.size() - end.size()) << reason;
    EXPECT_EQ(host::Setting("DEBUGMENU_SYSROOT"), std::nullopt);
}

TEST(Host, WritesALineOfTheTraceWhole)
{
    const Process folder;
    const std::string path = folder.Path("pipe"), line(300'000, 'x');
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    host::Trace trace;
    trace.Open(path);
    std::thread writer([&] { trace.Write(line); }); // more than a pipe holds
    std::string read;
    char buffer[4096];
    for (int i = 0; i < 5000 && read.size() <= line.size(); ++i) {
        const ssize_t count = ::read(reader, buffer, sizeof buffer);
        read.append(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
        if (count <= 0)
            usleep(1000);
    }
    close(reader); // ends a writer that is still there
    writer.join();
    EXPECT_TRUE(read == line + '\n') << read.size();
}

} // namespace
