// The menus in process: console and platform calls in the order in which they happen.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugUtil.h"
#include "support/Screens.h"
#include "support/Television.h"

#include <gtest/gtest.h>

namespace
{

// The record of a menu left at once is its first screen.
std::string After(const std::string& screen, const std::string& record)
{
    EXPECT_EQ(record.rfind(screen, 0), 0U) << record;
    return record.substr(std::min(record.size(), screen.size()));
}

TEST(Menus, ShowTheSourceBeforeTheControlIsReleased)
{
    Television television("[result]\nISourceControl::GetSource=-7\n");
    television.Type("7 -2 99");
    EXPECT_TRUE(TCDebugUtil::TVSDebugFunction());
    EXPECT_EQ(After("DebugUtil\n" + kTVSMenu, television.TakeRecord()),
              kSubIdPrompt +
                  "TVServiceAPI::CreateSourceControl(1, -2) = 0\n"
                  "ISourceControl::GetSource() = -7\n"
                  "**********************\n*****Set SubID[-2]*****\n*****Source[0]*****\n"
                  "**********************\nTVServiceAPI::Destroy(ISourceControl)\n" +
                  kTVSMenu);
}

TEST(Menus, OneTelevisionAfterTheOther)
{
    for (const char* id : {"18446744073709551614", "9223372036854775808"}) {
        Television television(std::string("[latest]\nrf_cable=") + id + "\n");
        television.Type("11");
        TCDebugMenuTPMS().Enter();
        EXPECT_EQ(television.TakeRecord(),
                  "TVServiceAPI::CreateSignalSubscriber() = 0\n" + kTPMSMenu +
                      "TVServiceAPI::CreateServiceNavigation(1, 0) = 0\n"
                      "IServiceNavigation::GetLatestRFServiceId({1, 0}) = 1 " +
                      id + "\n[RF][CABLE] serviceId " + id +
                      "\nIServiceNavigation::GetLatestVelunaServiceId({1, 0}) = 1\n[VELUNA][CABLE] serviceId " + id +
                      "\nIServiceNavigation::GetLatestRFServiceId({0, 0}) = 1\n[RF][AIR] serviceId " + id +
                      "\nIServiceNavigation::GetLatestVelunaServiceId({0, 0}) = 1\n[VELUNA][AIR] serviceId " + id +
                      "\nTVServiceAPI::Destroy(IServiceNavigation)\n" + kTPMSMenu +
                      "TVServiceAPI::DestroySignalSubscriber()\n");
    }
}

} // namespace
