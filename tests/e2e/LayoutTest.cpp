// What the build lays out: the exports of the tool and of the platform's libraries, and plug-ins between the two.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gtest/gtest.h>

namespace
{

std::string Exports(const std::string& file)
{
    return RunShell("nm -DC --defined-only --format=posix " + file + " | sed 's/ [A-Z] .*//' | sort -u");
}

TEST(Layout, TheToolExportsWhatPlugInsCall)
{
    EXPECT_EQ(Exports(TOOL_FILE), "TCDebugMenuTPMS::Enter()\nTCDebugMenuTPMS::TCDebugMenuTPMS()\n");
}

TEST(Layout, TheLibrariesExportWhatTheirHeadersDeclare)
{
    const std::string folder = SYSROOT_PATH "/usr/lib/lib";
    EXPECT_EQ(Exports(folder + "vconf.so"), "vconf_get_int\n");
    EXPECT_EQ(Exports(folder + "debugmenu-utility.so"),
              "TCDebugMenuUtility::IsNumber(std::__cxx11::basic_string<char, std::char_traits<char>, "
              "std::allocator<char> > const&)\nTCDebugMenuUtility::OpenLibrary(char const*, char const*)\n"
              "TCDebugMenuUtility::thickLine\nTCDebugMenuUtility::thinLine\n");
    const std::string api = Exports(folder + "tvs-api.so");
    EXPECT_NE(api.find("TVServiceAPI::Destroy(ITvsSession*)\n"), std::string::npos);
    for (const char* inner : {"host::", "\nstd::", "Connection::Channel"})
        EXPECT_EQ(api.find(inner), std::string::npos) << api.substr(api.find(inner), 200);
}

TEST(Layout, APlugInCallsThePlatform)
{
    const Outcome outcome = RunTool("6 x\n", "", {{"DEBUGMENU_SYSROOT", PLUG_IN_SYSROOT_PATH}});
    EXPECT_EQ(outcome.out,
              "DebugUtil\n" + kTopMenu + "executing: TVS HT Debug\nRestartVideoDecoder: 1\n" + kTopMenu + kTopMenu);
    EXPECT_EQ(Lines(outcome.trace), "TVServiceAPI::CreateAVControl(101, 3) = 0\nIAVControl::RestartVideoDecoder() = 1\n"
                                    "TVServiceAPI::Destroy(IAVControl)\n");
    EXPECT_EQ(outcome.err, "");
    const Outcome thrown =
        RunTool("6\n", "[result]\nTVServiceAPI::CreateAVControl=-1\n", {{"DEBUGMENU_SYSROOT", PLUG_IN_SYSROOT_PATH}});
    EXPECT_EQ(thrown.err, "TVS HT Debug: unknown exception\n");
    EXPECT_EQ(thrown.status, 0);
}

} // namespace
