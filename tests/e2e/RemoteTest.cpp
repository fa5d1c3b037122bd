// The remote menu on the console: embedded, over a bus, with a service told what to say, and with what comes and goes.
#include "support/FakeService.h"
#include "support/Screens.h"
#include "support/TestBus.h"
#include "support/Tool.h"
#include "tvs-api-internal/DebugPrintMethods.h"

#include <gmock/gmock.h>

namespace
{

const std::string kFailed = "Failed to start TVS debug print control\n";

// Method and number as the trace shows them, with the outcome.
std::string Called(const std::string& call, const char* outcome = "true")
{
    return "TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", " + call + ") = " + outcome + "\n";
}
const std::string kStart = "\"Start\", 0", kExecute = "\"Execute\", 1", kStop = "\"Stop\", 2";

TEST(RemoteMenu, IsTheSameOnEveryRoadToTheService)
{
    TestBus bus;
    bus.StartService();
    const auto walk = [](const Environment& road) { return RunTool("1\n3\n03\n99\n1\n", "", road); };
    const Outcome embedded = walk({});
    EXPECT_THAT(embedded.out, testing::HasSubstr(" 3. Video [on]\n"));
    EXPECT_EQ(Lines(embedded.trace), Called(kStart) + Called(kExecute) + Called(kExecute) + Called(kExecute) +
                                         Called(kStop) + Called(kStart) + Called(kStop));
    for (const Environment& road : {Environment{{"TVS_BUS", bus.Address()}},
                                    {{"TVS_BUS", "session"}, {"DBUS_SESSION_BUS_ADDRESS", bus.Address()}},
                                    {{"TVS_BUS", "system"}, {"DBUS_SYSTEM_BUS_ADDRESS", bus.Address()}}}) {
        const Outcome outcome = walk(road);
        EXPECT_EQ(outcome.out, embedded.out);
        EXPECT_EQ(outcome.trace, embedded.trace);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST(RemoteMenu, GoesByTheServicesResults)
{
    const auto screen = [](const char* result, const char* text) {
        return std::string("0:u") + result + " 1:[0:u3 1:'" + text + "']";
    };
    const std::string minus5 = "4294967291", same = "0:u1 1:[0:u0]", stopped = "0:u0";
    TestBus bus;
    FakeService service(bus.Address(),
                        {screen("0", "no>"), screen(minus5.c_str(), "no>"), screen("2", "a> "), screen("2", "b> "),
                         same, screen("1", "c> "), screen("3", "d> "), screen("0", "no>"), stopped, screen("1", "e> "),
                         screen(minus5.c_str(), "no>"), stopped, screen("1", "f> "), screen("1", "g> "), stopped});
    const Outcome outcome = RunTool("1 1 1 003 +3\nx\ty\xC3\xA4\xFF\" 99 1 3 1 -0", "", {{"TVS_BUS", bus.Address()}});
    const std::string menu = kTopMenu + "executing: TVS\n";
    EXPECT_EQ(outcome.out, "DebugUtil\n" + menu + kFailed + menu + kFailed + menu + "a> b> b> c> d> " + menu + "e> " +
                               menu + "f> g> ");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    std::string calls;
    for (const char* call :
         {"0 Start()", "0 Start()", "0 Start()", "1 Execute(0:[0:u3 1:'003'])", "1 Execute(0:[0:u2 1:'+3'])",
          "1 Execute(0:[0:u1 1:'x'])", "1 Execute(0:[0:u5 1:'y\xC3\xA4\xFF\"'])", "1 Execute(0:[0:u2 1:'99'])",
          "2 Stop()", "0 Start()", "1 Execute(0:[0:u1 1:'3'])", "2 Stop()", "0 Start()", "1 Execute(0:[0:u2 1:'-0'])",
          "2 Stop()"})
        calls += std::string("/com/kavrin/TVService/SignalObject ") + call + "\n";
    EXPECT_EQ(service.End(), calls);
}

TEST(RemoteMenu, ComesBackWithTheServiceAndTheBus)
{
    TestBus bus;
    Tool tool("", {{"TVS_BUS", bus.Address()}});
    std::string calls;
    const auto type = [&](const char* word, const std::string& answer, const std::string& called) {
        tool.Type(word);
        tool.WaitFor(answer);
        calls += called;
    };
    const auto open = [&] { type("1\n", "tvs> ", Called(kStart)); };
    const auto fail = [&] { type("1\n", kFailed + kTopMenu, Called(kStart, "false")); };
    const auto lose = [&] { type("3\n", kTopMenu, Called(kExecute, "false") + Called(kStop, "false")); };
    fail();
    bus.StartService();
    open();
    bus.KillService();
    lose();
    {
        const FakeService leavesInTheMiddleOfACall(bus.Address(), {});
        fail();
    }
    bus.StartService();
    open();
    bus.End();
    lose();
    fail();
    bus.Start();
    bus.StartService();
    open();
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Lines(outcome.trace), calls + Called(kStop));
}

TEST(Tvserviced, IsDescribedToTheBusToolsAndSaysWhyItEnds)
{
    TestBus bus;
    Process service;
    TestBus::StartService(service, bus.Address());
    const std::string description =
        RunShell("gdbus introspect --xml --dest com.kavrin.TVService --object-path /com/kavrin/TVService/SignalObject"
                 " --address " +
                 bus.Address());
    for (const char* method : kDebugPrintMethodNames)
        EXPECT_THAT(description, testing::HasSubstr(std::string("<method name=\"") + method +
                                                    "\">\n   <arg type=\"n\" direction=\"in\"/>\n"
                                                    "   <arg type=\"av\" direction=\"in\"/>\n"
                                                    "   <arg type=\"av\" direction=\"out\"/>\n  </method>"));
    EXPECT_EQ(RunShell("cd ${TOOL%/*}; for TVS_BUS in '' nowhere: " + bus.Address() +
                       "; do export TVS_BUS; ./tvserviced 2>&1; echo $?; done"),
              "tvserviced: TVS_BUS is not set: give session, system or a D-Bus address\n1\n"
              "tvserviced: nowhere:: Connection refused\n1\n"
              "tvserviced: " +
                  bus.Address() + ": com.kavrin.TVService has an owner already\n1\n");
    bus.End();
    EXPECT_EQ(service.End(), 1);
    EXPECT_EQ(ReadFile(service.Path("err")), "tvserviced: the bus has ended\n");
}

} // namespace
