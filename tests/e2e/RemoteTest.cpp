// The remote menu on the console: embedded, over a bus, and with a service and a bus that come and go.
#include "support/Screens.h"
#include "support/Tool.h"

#include <gtest/gtest.h>

namespace
{

/// A D-Bus daemon of the test's own, and the real TV service.
struct RemoteMenu : testing::Test {
    RemoteMenu() { StartBus(); }
    void StartBus()
    {
        bus.Start({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address", "--address=" + address});
        bus.WaitFor("\n");
    }
    void StartService()
    {
        service.Start({SERVICE_PATH}, {{"TVS_BUS", address}});
        service.WaitFor("tvserviced: serving com.kavrin.TVService on " + address + "\n");
    }
    Process bus, service;
    const std::string address = "unix:path=" + bus.Path("bus");
};

// As the trace shows them.
const std::string kRun = "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"",
                  kStart = kRun + "Start\", 0) = true\n", kExecute = kRun + "Execute\", 1) = true\n",
                  kStop = kRun + "Stop\", 2) = true\n";

TEST_F(RemoteMenu, IsTheSameOnEveryRoadToTheService)
{
    StartService();
    const auto walk = [](const Environment& road) { return RunTool("1\n3\n03\n99\n1\n", "", road); };
    const Outcome embedded = walk({});
    EXPECT_EQ(embedded.trace, kStart + kExecute + kExecute + kExecute + kStop + kStart + kStop);
    for (const Environment& road : {Environment{{"TVS_BUS", address}},
                                    {{"TVS_BUS", "session"}, {"DBUS_SESSION_BUS_ADDRESS", address}},
                                    {{"TVS_BUS", "system"}, {"DBUS_SYSTEM_BUS_ADDRESS", address}}}) {
        const Outcome outcome = walk(road);
        EXPECT_EQ(outcome.out, embedded.out);
        EXPECT_EQ(outcome.trace, embedded.trace);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(RemoteMenu, ComesBackWithTheServiceAndTheBus)
{
    Tool tool("", {{"TVS_BUS", address}});
    for (Process* const lost : {&service, &bus}) {
        StartService();
        tool.Type("1\n");
        tool.WaitFor("tvs> ");
        lost->Kill();
        tool.Type("3 1\n");
        tool.WaitFor("Failed to start TVS debug print control\n" + kTopMenu);
    }
    StartBus();
    StartService();
    tool.Type("1\n");
    const std::string missed =
        kRun + "Execute\", 1) = false\n" + kRun + "Stop\", 2) = false\n" + kRun + "Start\", 0) = false\n";
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.trace, kStart + missed + kStart + missed + kStart + kStop);
    const std::string lost = "TV service on " + address + ": ", refused = lost + "Connection refused\n",
                      noOwner = lost + "The name com.kavrin.TVService was not provided by any .service files\n";
    EXPECT_EQ(outcome.err, noOwner + noOwner + noOwner + refused + refused + refused);
}

} // namespace
