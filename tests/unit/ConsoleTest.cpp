// How the console reads very long words and writes lines.
#include "debugutil/Console.h"
#include "support/ConsoleScope.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iostream>
#include <vector>

TEST(Console, CutsAWordAfterAMebibyte)
{
    ConsoleScope scope;
    scope.Type(std::string((1 << 20) + 1, 'x') + " " + std::string(1 << 20, 'y') + " z " + std::string(3 << 20, 'x'));
    std::vector<std::size_t> lengths; // the rest of a cut word is skipped, also at the end of the input
    for (std::string word; console::ReadWord(word) && lengths.size() < 9;)
        lengths.push_back(word.size());
    EXPECT_EQ(lengths, (std::vector<std::size_t>{1 << 20, 1 << 20, 1, 1 << 20}));
}

// Marks the beginning of each insertion.
struct Screen : std::stringbuf {
    std::streamsize xsputn(const char* s, std::streamsize n) override
    {
        return sputc('|'), std::stringbuf::xsputn(s, n);
    }
};

TEST(Console, WritesALineInOneInsertionAndIgnoresAnEarlierErrno)
{
    Screen screen;
    const ConsoleScope scope; // resets the streams at the end
    std::cout.rdbuf(&screen);
    std::cerr.rdbuf(&screen);
    console::WriteLine("line");
    console::PrintError("error");
    std::cout.rdbuf(nullptr);
    errno = ENOENT; // of an earlier call
    console::Write("lost");
    EXPECT_EQ(screen.str(), "|line\n|error\n|console: text was lost: unknown reason\n");
}
