// Linked into a second build of the tool: each word that is read is told on standard output at the moment it is read,
// so that what is typed, printed and called stands in one stream, in the order in which it happened. A wait stands in it,
// too, as the C library is asked for it.
#include "support/WordByWord.h"

#include <iostream>
#include <time.h>

// Read until the process ends.
[[maybe_unused]] static const auto* const g_input = [] {
    auto* input = new WordByWord(*std::cin.rdbuf(),
                                 [](const std::string& word) { std::cout << WordByWord::Told(word) << std::flush; });
    std::cin.rdbuf(input);
    return input;
}();

extern "C" int nanosleep(const timespec* time, timespec* left)
{
    std::cout << "«" << time->tv_sec << " s " << time->tv_nsec << " ns»\n" << std::flush;
    return clock_nanosleep(CLOCK_REALTIME, 0, time, left);
}
