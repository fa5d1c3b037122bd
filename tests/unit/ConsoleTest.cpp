// Words longer than anybody types.
#include "debugutil/Console.h"
#include "support/Television.h"

#include <gtest/gtest.h>
#include <vector>

TEST(Console, CutsAWordBehindAMebibyte)
{
    Television television;
    television.Type(std::string((1 << 20) + 1, 'x') + " " + std::string(1 << 20, 'y') + " z " +
                    std::string(3 << 20, 'x'));
    std::vector<std::size_t> lengths; // what is cut off is no word of its own, at the end of the input either
    for (std::string word; console::ReadWord(word) && lengths.size() < 9;)
        lengths.push_back(word.size());
    EXPECT_EQ(lengths, (std::vector<std::size_t>{1 << 20, 1 << 20, 1, 1 << 20}));
}
