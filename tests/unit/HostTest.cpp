// What the host platform reads and says outside the calls that it plays.
#include "debugmenu/DebugMenuUtility.h"
#include "host/call/Settings.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

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
    EXPECT_EQ(
        open("/nowhere", "/a.so", "entry", false),
        "/nowhere/a.so: cannot open shared object file: No such file or directory (DEBUGMENU_SYSROOT moves it)\n");
    const std::string reason = open("", "libc.so.6", "no_entry", false),
                      end = ": undefined symbol: no_entry (DEBUGMENU_SYSROOT moves it)\n";
    EXPECT_EQ(reason.rfind("libc.so.6: ", 0), 0U) << reason;
    EXPECT_EQ(reason.find(end), reason.size() - end.size()) << reason;
    EXPECT_EQ(host::Setting("DEBUGMENU_SYSROOT"), std::nullopt);
}

} // namespace
