// Details of the TPMS menu that no session shows: return values, a counter of 16 bits, a subscription that fails.
#include "support/Access.h"
#include "support/ConsoleScope.h"

#include <gmock/gmock.h>

namespace
{

TEST(TPMSTests, ReturnWhetherTheySucceeded)
{
    constexpr auto epg = TSTestAccess::epgDataFeeding, invalid = TSTestAccess::invalidServiceTest,
                   bootup = TSTestAccess::setBootupService;
    const std::tuple<decltype(epg), const char*, const char*, bool> cases[] = {
        {epg, "", "99", true},
        {epg, "TVServiceAPI::CreateScanControl=1", "99", false},
        {epg, "TVServiceAPI::CreateServiceGuide=1", "99", false},
        {epg, "TVServiceAPI::CreateServiceNavigation=1", "99", false},
        {invalid, "", "99", true},
        {invalid, "TVServiceAPI::CreateServiceNavigation=1", "99", false},
        {invalid, "TVServiceAPI::CreateSourceControl=1", "99", false},
        {bootup, "", "2", true},
        {bootup, "TVServiceAPI::CreateServiceNavigation=1", "2", false},
        {bootup, "", "x", false},
        {bootup, "IServiceNavigation::SetBootupService=0", "2", false},
    };
    for (const auto& [test, fault, words, expected] : cases) {
        ConsoleScope scope(host::ParseScenario("(test)", std::string("[result]\n") + fault));
        scope.Type(words);
        EXPECT_EQ((TCDebugMenuTPMS().*test)(), expected) << fault;
    }
}

TEST(TPMSTests, CountTitlesIn16Bits)
{
    host::Scenario scenario = host::ParseScenario("(test)", "[service]\n4=1\n12=1\n13=2\n14=3\ntitle=x\n");
    scenario.services.resize(65'536 + 300, scenario.services[0]);
    ConsoleScope scope(scenario);
    scope.Type("1 99");
    (TCDebugMenuTPMS().*TSTestAccess::epgDataFeeding)();
    EXPECT_THAT(scope.TakeRecord(), testing::HasSubstr("\tno data in 65536 programs\n"));
}

TEST(TPMSTests, AddNoSignalsWhenTheSecondSubscriptionFails)
{
    ConsoleScope scope(host::ParseScenario("(test)", "[result]\nTVServiceAPI::CreateSignalSubscriber#2=-1\n"));
    scope.Type("99 18 6 99 99");
    TCDebugMenuTPMS menu;
    menu.Enter();
    menu.Enter();
    EXPECT_THAT(scope.TakeRecord(), testing::Not(testing::HasSubstr("ISignalSubscriber")));
}

} // namespace
