// The proxy against the embedded service: all eleven operations over the wire.
#include "debugutil/DebugPrintControlProxy.h"

#include <gtest/gtest.h>

namespace
{

constexpr const char* kInterface = "com.kavrin.IDebugPrintControl";

TEST(Proxy, WalksTheMenu)
{
    TCDebugPrintControlProxy proxy(kInterface);
    std::string screen;
    ASSERT_EQ(proxy.Start(screen), 1);
    EXPECT_NE(screen.find(" 3. Video [off]\n"), std::string::npos);
    ASSERT_EQ(proxy.Execute("3", screen), 1);
    EXPECT_NE(screen.find(" 3. Video [on]\n"), std::string::npos);
    std::int32_t printing = -5;
    EXPECT_EQ(proxy.Check(printing), 1);
    EXPECT_EQ(printing, 1);
    for (const std::string& word :
         {std::string(), std::string("x\0y", 3), std::string(100'000, 'w'), std::string("-3")}) {
        ASSERT_EQ(proxy.Execute(word, screen), 1);
        EXPECT_EQ(screen.rfind("Not an item of this menu\n", 0), 0U);
    }
    const std::string last = screen;
    EXPECT_EQ(proxy.Execute("99", screen), 0);
    EXPECT_EQ(screen, last); // an empty answer leaves the text
    EXPECT_EQ(proxy.Stop(), 1);
}

TEST(Proxy, ReadsAndChangesItems)
{
    TCDebugPrintControlProxy proxy(kInterface);
    std::vector<TSMenuItem> items = proxy.GetMenuItems();
    ASSERT_EQ(items.size(), 6U);
    EXPECT_EQ(items[5].getName(), "Programme guide");
    EXPECT_EQ(items[5].getID(), 6U);
    items.resize(2);
    items[1].setName("Renamed");
    EXPECT_TRUE(proxy.SetMenuItems(items));
    items[0].setState(true);
    EXPECT_TRUE(proxy.SetMenuItem(items[0]));
    items[0].setID(55);
    EXPECT_TRUE(proxy.SetMenuItem(items[0])); // went through, though the service has no such item
    items = proxy.GetMenuItems();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_TRUE(items[0].getState());
    EXPECT_EQ(items[0].getID(), 1U);
    EXPECT_EQ(items[1].getName(), "Renamed");
    items.resize(10'000);
    EXPECT_TRUE(proxy.SetMenuItems(items));
    EXPECT_EQ(proxy.GetMenuItems().size(), 10'000U);
}

TEST(Proxy, SwitchesQoSAndDebugModes)
{
    TCDebugPrintControlProxy proxy(kInterface);
    EXPECT_FALSE(proxy.IsQoSEnabled());
    EXPECT_TRUE(proxy.SetQoSEnabled(true));
    EXPECT_TRUE(proxy.IsQoSEnabled());
    EXPECT_TRUE(proxy.SetDebugMode(DEBUG_MODE_SIGNAL, true));
    EXPECT_TRUE(proxy.SetDebugMode(static_cast<EDebugMode>(77), true));
    EXPECT_TRUE(proxy.IsDebugModeEnabled(DEBUG_MODE_SIGNAL));
    EXPECT_FALSE(proxy.IsDebugModeEnabled(DEBUG_MODE_PRINT));
    EXPECT_FALSE(proxy.IsDebugModeEnabled(static_cast<EDebugMode>(77)));
    EXPECT_TRUE(proxy.SetDebugMode(DEBUG_MODE_SIGNAL, false));
    EXPECT_FALSE(proxy.IsDebugModeEnabled(DEBUG_MODE_SIGNAL));
}

// Every operation of a proxy whose calls fail.
void ExpectFailures(TCDebugPrintControlProxy& proxy)
{
    std::string text = "before";
    std::int32_t value = 5;
    EXPECT_EQ(proxy.Start(text), -1);
    EXPECT_EQ(proxy.Execute("1", text), -1);
    EXPECT_EQ(proxy.Stop(), -1);
    EXPECT_EQ(proxy.Check(value), -1);
    EXPECT_TRUE(proxy.GetMenuItems().empty());
    EXPECT_FALSE(proxy.SetMenuItems({}));
    EXPECT_FALSE(proxy.SetMenuItem({}));
    EXPECT_FALSE(proxy.SetQoSEnabled(true));
    EXPECT_FALSE(proxy.IsQoSEnabled());
    EXPECT_FALSE(proxy.SetDebugMode(DEBUG_MODE_PRINT, true));
    EXPECT_FALSE(proxy.IsDebugModeEnabled(DEBUG_MODE_PRINT));
    EXPECT_EQ(text, "before");
    EXPECT_EQ(value, 5);
}

TEST(Proxy, ReportsFailedCalls)
{
    TCDebugPrintControlProxy unknown("com.kavrin.NoSuchInterface");
    ExpectFailures(unknown);
}

TEST(Proxy, LivesWithoutAConnection)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    TCDebugPrintControlProxy proxy(kInterface, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ASSERT!!! - function TCDebugPrintControlProxy, line 20");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "ASSERT m_pTVSConnection at src/debugutil/DebugPrintControlProxy:20\n");
    ExpectFailures(proxy);
}

} // namespace
