// The remote menu on the console: embedded, over a bus, with a service told what to say, and with what comes and goes.
#include "support/FakeService.h"
#include "support/RemoteScreen.h"
#include "support/Screens.h"
#include "support/TestBus.h"
#include "support/Tool.h"
#include "tvs-api-internal/DebugPrintMethods.h"

#include <gmock/gmock.h>

namespace
{

const std::string kOpening = "executing: TVS\n";
const std::string kFailed = "Failed to start TVS debug print control\n";

std::string Called(const char* method, int number, const char* outcome = "true")
{
    return std::string("TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"") + method + "\", " +
           std::to_string(number) + ") = " + outcome + "\n";
}

TEST(RemoteMenu, IsTheSameOnEveryRoadToTheService)
{
    TestBus bus;
    bus.StartService();
    const std::string& address = bus.Address();
    const Environment roads[] = {{},
                                 {{"TVS_BUS", address}},
                                 {{"TVS_BUS", "session"}, {"DBUS_SESSION_BUS_ADDRESS", address}},
                                 {{"TVS_BUS", "system"}, {"DBUS_SYSTEM_BUS_ADDRESS", address}}};
    for (const Environment& road : roads) {
        const Outcome outcome = RunTool("1\n3\n3\n99\n1\n", "", road);
        const std::string off = RemoteScreen("off"), on = RemoteScreen("on");
        EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + kOpening + off + on + off + kTopMenu + kOpening + off);
        EXPECT_EQ(Lines(outcome.trace), Called("Start", 0) + Called("Execute", 1) + Called("Execute", 1) +
                                            Called("Execute", 1) + Called("Stop", 2) + Called("Start", 0) +
                                            Called("Stop", 2));
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.status, 0);
    }
}

TEST(RemoteMenu, GoesByTheServicesResults)
{
    const Answer stopped = Reply("av", 1, "u", 0), sameScreen = Reply("av", 2, "u", 1, "a(nv)", 1, 0, "u", 0);
    TestBus bus;
    FakeService service(bus.Address(), {ScreenReply(0, "no>"), ScreenReply(-5, "no>"), // stays closed
                                        ScreenReply(2, "a> "), ScreenReply(2, "b> "), sameScreen, ScreenReply(1, "c> "),
                                        ScreenReply(3, "d> "), ScreenReply(0, "no>"), stopped, // ended by the service
                                        ScreenReply(1, "e> "), ScreenReply(-5, "no>"), stopped, ScreenReply(1, "f> "),
                                        ScreenReply(1, "g> "), stopped}); // by the input
    const Outcome outcome = RunTool("1 1 1 003 +3\nx\ty\xC3\xA4\xFF\" 99 1 3 1 -0", "", {{"TVS_BUS", bus.Address()}});
    EXPECT_EQ(FoldMenus(outcome.out),
              FoldMenus("DebugUtil\n" + kTopMenu + kOpening + kFailed + kTopMenu + kOpening + kFailed + kTopMenu +
                        kOpening + "a> b> b> c> d> " + kTopMenu + kOpening + "e> " + kTopMenu + kOpening + "f> g> "));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    std::string calls;
    for (const char* call :
         {"0 Start()", "0 Start()", "0 Start()", "1 Execute(0:[0:u3 1:\"003\"])", "1 Execute(0:[0:u2 1:\"+3\"])",
          "1 Execute(0:[0:u1 1:\"x\"])", "1 Execute(0:[0:u5 1:\"y\xC3\xA4\xFF\"\"])", "1 Execute(0:[0:u2 1:\"99\"])",
          "2 Stop()", "0 Start()", "1 Execute(0:[0:u1 1:\"3\"])", "2 Stop()", "0 Start()",
          "1 Execute(0:[0:u2 1:\"-0\"])", "2 Stop()"})
        calls += std::string("/com/kavrin/TVService/SignalObject ") + call + "\n";
    EXPECT_EQ(service.End(), calls);
}

TEST(RemoteMenu, ComesBackWithTheServiceAndTheBus)
{
    TestBus bus;
    Tool tool("", {{"TVS_BUS", bus.Address()}});
    std::string shown = "DebugUtil\n" + kTopMenu, calls;
    const auto type = [&](const char* word, const std::string& answer) {
        tool.Type(word);
        tool.WaitFor(answer);
        shown += answer;
    };
    const auto open = [&] {
        type("1\n", kOpening + RemoteScreen("off"));
        calls += Called("Start", 0);
    };
    const auto fail = [&] {
        type("1\n", kOpening + kFailed + kTopMenu);
        calls += Called("Start", 0, "false");
    };
    const auto lose = [&] {
        type("3\n", kTopMenu);
        calls += Called("Execute", 1, "false") + Called("Stop", 2, "false");
        fail();
    };
    fail();
    bus.StartService();
    open();
    bus.KillService();
    lose();
    {
        const FakeService leaves(bus.Address(), {}); // in the middle of a call
        fail();
    }
    bus.StartService();
    open();
    bus.End();
    lose();
    bus.Start();
    bus.StartService();
    open();
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.out, shown);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Lines(outcome.trace), calls + Called("Stop", 2));
}

TEST(Tvserviced, IsDescribedToTheBusTools)
{
    TestBus bus;
    bus.StartService();
    const std::string description =
        RunShell("gdbus introspect --xml --dest com.kavrin.TVService --object-path /com/kavrin/TVService/SignalObject"
                 " --address " +
                 bus.Address());
    for (const char* method : kDebugPrintMethodNames)
        EXPECT_THAT(description, testing::HasSubstr(std::string("<method name=\"") + method + R"(">
   <arg type="n" direction="in"/>
   <arg type="av" direction="in"/>
   <arg type="av" direction="out"/>
  </method>)"));
}

TEST(Tvserviced, SaysWhyItEnds)
{
    TestBus bus;
    Process service;
    TestBus::StartService(service, bus.Address());
    const std::string refused = RunShell("cd ${TOOL%/*} && for bus in '' nowhere: " + bus.Address() +
                                         "; do TVS_BUS=$bus ./tvserviced 2>&1; echo $?; done");
    EXPECT_EQ(refused, "tvserviced: TVS_BUS is not set: give session, system or a D-Bus address\n1\n"
                       "tvserviced: nowhere:: Connection refused\n1\n"
                       "tvserviced: " +
                           bus.Address() + ": com.kavrin.TVService has an owner already\n1\n");
    bus.End();
    EXPECT_EQ(service.End(), 1);
    EXPECT_EQ(ReadFile(service.Path("err")), "tvserviced: the bus has ended\n");
}

} // namespace
