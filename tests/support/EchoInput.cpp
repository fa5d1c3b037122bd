// Linked into a second build of the tool. Prints each word on standard output when it is read, so that words, output and
// calls are in one stream, in order. Also prints each sleep and the end of the event loop.
#include "support/WordByWord.h"

#include <dlfcn.h>
#include <glib.h>
#include <iostream>
#include <time.h>

// Never freed: std::cin reads from it until the process ends.
[[maybe_unused]] static const auto* const g_input = [] {
    auto* input = new WordByWord(*std::cin.rdbuf(),
                                 [](const std::string& word) { std::cout << WordByWord::Shown(word) << std::flush; });
    std::cin.rdbuf(input);
    return input;
}();

extern "C" int nanosleep(const timespec* time, timespec* left)
{
    std::cout << "«" << time->tv_sec << " s " << time->tv_nsec << " ns»\n" << std::flush;
    return clock_nanosleep(CLOCK_REALTIME, 0, time, left);
}

extern "C" void g_main_loop_run(GMainLoop* loop)
{
    reinterpret_cast<decltype(&g_main_loop_run)>(dlsym(RTLD_NEXT, "g_main_loop_run"))(loop);
    std::cout << "«the event loop has ended»\n" << std::flush;
}
