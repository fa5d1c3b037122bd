// The baseline of the console benchmarks, linked to the same libraries as the tool. Prints a prompt; with a number N and
// texts, prints the texts N times and flushes each one, as the tool does.
#include "debugmenu/DebugMenuUtility.h"
#include "tvs-api/Query.h"
#include "vconf/vconf.h"

#include <chrono>
#include <cstdlib>
#include <glib.h>
#include <iostream>
#include <thread>

int main(int argc, char** argv)
{
    if (argc == 1) {
        // Uses each library, so that the linker keeps it.
        TCCriteriaHelper().Fetch(1);
        int value = 0;
        std::cout << "cmd> " << std::flush;
        return TCDebugMenuUtility::IsNumber("x") ? vconf_get_int("x", &value) + static_cast<int>(g_random_int()) : 0;
    }
    std::thread([] { std::this_thread::sleep_for(std::chrono::hours(1)); }).detach();
    for (int passes = std::atoi(argv[1]); passes > 0; --passes)
        for (char** text = argv + 2; *text != nullptr; ++text)
            std::cout << *text << std::flush;
}
