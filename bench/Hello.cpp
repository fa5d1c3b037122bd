// The least that a program on the tool's libraries can do: a prompt, or with a number of passes the texts of that many
// passes through the top-level menu, flushed as the tool flushes them.
#include "debugmenu/DebugMenuUtility.h"
#include "tvs-api/Query.h"
#include "vconf/vconf.h"

#include <chrono>
#include <cstdlib>
#include <glib.h>
#include <iostream>
#include <string>
#include <thread>

int main(int argc, char** argv)
{
    if (argc == 1) {
        // Each library is used, so that none is left out.
        TCCriteriaHelper().Fetch(1);
        int value = 0;
        std::cout << "cmd> " << std::flush;
        return TCDebugMenuUtility::IsNumber("x") ? vconf_get_int("x", &value) + static_cast<int>(g_random_int()) : 0;
    }
    const std::string thick = TCDebugMenuUtility::thickLine;
    const std::string thin = TCDebugMenuUtility::thinLine;
    const std::string menu = thick + "DebugUtilMenu\n" + thin +
                             "1 TVS\n2 TV Player\n3 TV Plug in\n4 Dravel-Provider\n5 TVS Debug\n6 TVS HT Debug\n" +
                             thin + "99 Exit\n" + thick;
    std::thread([] { std::this_thread::sleep_for(std::chrono::hours(1)); }).detach();
    for (int passes = std::atoi(argv[1]); passes > 0; --passes)
        for (const std::string& text : {menu, std::string("cmd> "), std::string("executing: TV Player\n"),
                                        std::string("Command not implemented\n")})
            std::cout << text << std::flush;
}
