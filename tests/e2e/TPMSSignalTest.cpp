// Signals of the TPMS menu: printed while it is open, and never after it.
#include "support/Recording.h"

#include <gmock/gmock.h>

namespace
{

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

TEST(TPMSSignals, NeverArriveAfterTheMenu)
{
    std::string input;
    for (int round = 0; round < 300; ++round)
        input += "6 18 3 6 99 99\n";
    const std::string told = Play(input);
    EXPECT_EQ(Count(told, "TVServiceAPI::DestroySignalSubscriber()\n<top>\ncmd> "), 300U);
    EXPECT_THAT(told, testing::HasSubstr("\tSIGNAL_TUNE_AROUND_SERVICE_DONE -> profile:702, screenId: 0, serviceId: "));
}

} // namespace
