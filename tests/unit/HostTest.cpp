// What the host platform reads and says outside the calls that it plays.
#include "debugmenu/DebugMenuUtility.h"

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

} // namespace
