// What the console does with words longer than anybody types, and how it writes.
#include "debugutil/Console.h"
#include "support/Television.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iostream>
#include <vector>

namespace
{

struct CountingBuffer : std::stringbuf {
    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        ++insertions;
        return std::stringbuf::xsputn(text, size);
    }
    int insertions = 0;
};

TEST(Console, CutsAWordAfterAMebibyte)
{
    Television television;
    television.Type(std::string((1 << 20) + 1, 'x') + " " + std::string(1 << 20, 'y') + " z " +
                    std::string(3 << 20, 'x'));
    std::vector<std::size_t> lengths; // what is cut off is no word of its own, at the end of the input either
    for (std::string word; console::ReadWord(word) && lengths.size() < 9;)
        lengths.push_back(word.size());
    EXPECT_EQ(lengths, (std::vector<std::size_t>{1 << 20, 1 << 20, 1, 1 << 20}));
}

TEST(Console, WritesALineAtOnceAndReportsALossWithItsOwnReason)
{
    CountingBuffer screen;
    Television television; // puts the streams back
    std::cout.rdbuf(&screen);
    std::cerr.rdbuf(&screen);
    console::WriteLine("line");
    console::PrintError("error");
    EXPECT_EQ(screen.insertions, 2);
    std::cout.rdbuf(nullptr);
    errno = ENOENT; // of some call before
    console::Write("lost");
    EXPECT_EQ(screen.str(), "line\nerror\nconsole: text was lost: unknown reason\n");
}

} // namespace
