// Words longer than anybody types.
#include "debugutil/Console.h"
#include "support/Television.h"

#include <gtest/gtest.h>

namespace
{

TEST(Console, CutsAWordBehindAMebibyte)
{
    constexpr std::size_t mebibyte = 1 << 20;
    Television television;
    for (const std::size_t length : {mebibyte - 1, mebibyte, mebibyte + 1, 2 * mebibyte + 1}) {
        for (const char* next : {" next\n", ""}) { // its rest is no word of its own, at the end of the input either
            television.Type(std::string(length, 'x') + next);
            std::string word;
            EXPECT_TRUE(console::ReadWord(word));
            EXPECT_EQ(word.size(), std::min(length, mebibyte));
            EXPECT_EQ(console::ReadWord(word), *next != '\0');
            EXPECT_TRUE(*next == '\0' || word == "next");
        }
    }
}

} // namespace
