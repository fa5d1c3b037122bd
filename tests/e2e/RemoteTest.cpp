// The remote menu: embedded, over a real bus, with a service that lies, and with one that comes and goes.
#include "support/Screens.h"
#include "support/TestBus.h"
#include "support/Tool.h"
#include "tvs-api-internal/DebugPrintMethods.h"

#include <gtest/gtest.h>

namespace
{

const std::string kFailed = "Failed to start TVS debug print control\n";

std::string Screen(const std::string& video)
{
    return "====================================\n"
           "\t[TV Service Debug Print]\t\n"
           "------------------------------------\n"
           " 1. Tuner [off]\n"
           " 2. Source [off]\n"
           " 3. Video [" +
           video +
           "]\n"
           " 4. Audio [off]\n"
           " 5. Service list [off]\n"
           " 6. Programme guide [off]\n"
           "------------------------------------\n"
           " QoS: off\n"
           " Debug mode print: off\n"
           " Debug mode signal: off\n"
           " Debug mode performance: off\n"
           "------------------------------------\n"
           " 99 : Exit\n"
           "====================================\n"
           "tvs> ";
}

std::string Called(const char* method, int number, const char* outcome = "true")
{
    return std::string("TCMarshallingHelperProxy::Run(\"com.kavrin.IDebugPrintControl\", \"") + method + "\", " +
           std::to_string(number) + ") = " + outcome + "\n";
}

// Types words into the open menu and expects each answer; the same for every road to the service.
void WalkMenu(const Environment& environment)
{
    const Outcome outcome = RunTool("1\n3\n3\n99\n1\n", "", environment);
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "executing: TVS\n" + Screen("off") + Screen("on") +
                               Screen("off") + kTopMenu + "executing: TVS\n" + Screen("off"));
    EXPECT_EQ(Lines(outcome.trace), Called("Start", 0) + Called("Execute", 1) + Called("Execute", 1) +
                                        Called("Execute", 1) + Called("Stop", 2) + Called("Start", 0) +
                                        Called("Stop", 2));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}

TEST(RemoteMenu, WalksTheEmbeddedService) { WalkMenu({}); }

TEST(RemoteMenu, WalksTheServiceOnABus)
{
    TestBus bus;
    bus.StartService();
    WalkMenu({{"TVS_BUS", bus.Address()}});
}

TEST(RemoteMenu, SurvivesAnExceptionInACall)
{
    const Outcome outcome = RunTool("1\n2\n", "[throw]\nTCMarshallingHelperProxy::Run=broken\n");
    EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "executing: TVS\n" + kTopMenu +
                               "executing: TV Player\nCommand not implemented\n" + kTopMenu);
    EXPECT_EQ(outcome.err, "TVS: broken\n");
}

TEST(RemoteMenu, FailsWithoutABusOrAService)
{
    TestBus bus;
    for (const std::string& setting : {std::string("nonsense"), std::string("unix:path=/nowhere"), bus.Address()}) {
        const Outcome outcome = RunTool("1\n99\n", "", {{"TVS_BUS", setting}});
        EXPECT_EQ(outcome.out, "DebugUtil\n" + kTopMenu + "executing: TVS\n" + kFailed + kTopMenu + "executing: Exit\n")
            << setting;
        EXPECT_EQ(Lines(outcome.trace), Called("Start", 0, "false")) << setting;
    }
}

TEST(RemoteMenu, ComesBackWithTheService)
{
    TestBus bus;
    bus.StartService();
    Tool tool("", {{"TVS_BUS", bus.Address()}});
    tool.Type("1\n");
    tool.WaitFor("tvs> ");
    bus.KillService();
    tool.Type("3\n");
    tool.WaitFor(kTopMenu);
    tool.Type("1\n");
    tool.WaitFor(kFailed + kTopMenu);
    bus.StartService();
    tool.Type("1\n");
    tool.WaitFor(Screen("off"));
    const Outcome outcome = tool.Finish();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Lines(outcome.trace), Called("Start", 0) + Called("Execute", 1, "false") + Called("Stop", 2, "false") +
                                        Called("Start", 0, "false") + Called("Start", 0) + Called("Stop", 2));
}

// Appends a text of that length in front of those bytes.
int AppendText(sd_bus_message* reply, std::uint32_t length)
{
    return sd_bus_message_append(reply, "v", "a(nv)", 2, 0, "u", length, 1, "ay", 3, 'a', 'b', 'c');
}

int AppendNested(sd_bus_message* reply, int depth)
{
    if (depth == 0)
        return sd_bus_message_append(reply, "v", "y", 1);
    sd_bus_message_open_container(reply, 'v', "a(nv)");
    sd_bus_message_open_container(reply, 'a', "(nv)");
    sd_bus_message_open_container(reply, 'r', "nv");
    sd_bus_message_append(reply, "n", 0);
    const int result = AppendNested(reply, depth - 1);
    sd_bus_message_close_container(reply);
    sd_bus_message_close_container(reply);
    sd_bus_message_close_container(reply);
    return result;
}

TEST(RemoteMenu, RefusesRepliesThatLie)
{
    struct Lie {
        const char* name;
        std::function<int(sd_bus_message*)> fill; // inside `av`, where 4 bytes and a text belong
    };
    const auto result = [](sd_bus_message* m) { return sd_bus_message_append(m, "v", "u", 1); };
    const auto then = [&](std::function<int(sd_bus_message*)> text) {
        return [&result, text = std::move(text)](sd_bus_message* m) { return result(m) < 0 ? -1 : text(m); };
    };
    const Lie lies[] = {
        {"nothing", [](sd_bus_message*) { return 0; }},
        {"too few", result},
        {"too many", then([&](auto* m) { return AppendText(m, 3) < 0 ? -1 : result(m); })},
        {"order", [&](auto* m) { return AppendText(m, 3) < 0 ? -1 : result(m); }},
        {"width",
         [](auto* m) { return sd_bus_message_append(m, "v", "t", std::uint64_t{1}) < 0 ? -1 : AppendText(m, 3); }},
        {"signed", [](auto* m) { return sd_bus_message_append(m, "v", "i", 1) < 0 ? -1 : AppendText(m, 3); }},
        {"huge length", then([](auto* m) { return AppendText(m, 0xFFFFFFFF); })},
        {"5 GB", then([](auto* m) {
             return sd_bus_message_append(m, "v", "a(nv)", 2, 0, "t", std::uint64_t{5} << 30, 1, "ay", 1, 'a');
         })},
        {"length too large", then([](auto* m) { return AppendText(m, 4); })},
        {"length too small", then([](auto* m) { return AppendText(m, 2); })},
        {"a string", then([](auto* m) { return sd_bus_message_append(m, "v", "s", "text"); })},
        {"an array on top", then([](auto* m) { return sd_bus_message_append(m, "v", "ay", 1, 'a'); })},
        {"not an array", then([](auto* m) { return sd_bus_message_append(m, "v", "a(nv)", 2, 0, "u", 3, 1, "u", 3); })},
        {"tag", then([](auto* m) { return sd_bus_message_append(m, "v", "a(nv)", 2, 0, "u", 1, 7, "ay", 1, 'a'); })},
        {"more than anybody sends",
         [](auto* m) {
             int appended = 0;
             for (int i = 0; i < 120'000 && appended >= 0; ++i)
                 appended = sd_bus_message_append(m, "v", "y", 1);
             return appended;
         }},
        {"nested", then([](auto* m) { return AppendNested(m, 18); })},
        {"nested deeper than a bus allows", then([](auto* m) { return AppendNested(m, 33); })},
    };
    TestBus bus;
    const auto serve = [&bus](const std::function<int(sd_bus_message*)>& fill) {
        return std::make_unique<FakeService>(bus, [fill](sd_bus_message* reply) {
            sd_bus_message_open_container(reply, 'a', "v");
            const int appended = fill(reply);
            EXPECT_GE(appended, 0);
            return appended < 0 ? appended : sd_bus_message_close_container(reply);
        });
    };
    for (const Lie& lie : lies) {
        SCOPED_TRACE(lie.name);
        Tool tool("", {{"TVS_BUS", bus.Address()}});
        auto service = serve(lie.fill);
        tool.Type("1\n");
        tool.WaitFor("executing: TVS\n" + kFailed + kTopMenu);
        service.reset();
        service = serve(then([](auto* m) { return AppendText(m, 3); }));
        tool.Type("1\n");
        tool.WaitFor("executing: TVS\nabc");
        EXPECT_EQ(tool.Finish().status, 0);
    }
}

TEST(RemoteMenu, IsDescribedToTheBusTools)
{
    TestBus bus;
    bus.StartService();
    const auto client = bus.Connect();
    const auto call = [&](const char* interface, const char* method, const char* types, auto... arguments) {
        sd_bus_message* reply = nullptr;
        const int result =
            sd_bus_call_method(client.get(), "com.kavrin.TVService", "/com/kavrin/TVService/SignalObject", interface,
                               method, nullptr, &reply, types, arguments...);
        const char* text = "";
        if (result >= 0 && std::string(method) == "Introspect")
            sd_bus_message_read(reply, "s", &text);
        const std::string copy = result < 0 ? "error" : text;
        sd_bus_message_unref(reply);
        return copy;
    };
    const std::string description = call("org.freedesktop.DBus.Introspectable", "Introspect", "");
    for (const char* method : kDebugPrintMethodNames)
        EXPECT_NE(description.find(std::string("<method name=\"") + method + "\">"), std::string::npos) << method;
    const char* const interface = "com.kavrin.IDebugPrintControl";
    EXPECT_EQ(call(interface, "Start", "nav", 0, 0), "");
    EXPECT_EQ(call(interface, "Start", "nav", 1, 0), "error");                 // another method's number
    EXPECT_EQ(call(interface, "Start", "nav", 0, 1, "y", 1), "error");         // more than it takes
    EXPECT_EQ(call(interface, "Execute", "nav", 1, 0), "error");               // less than it takes
    EXPECT_EQ(call(interface, "SetQoSEnabled", "nav", 7, 1, "u", 1), "error"); // another width
    EXPECT_EQ(call(interface, "Start", "n", 0), "error");
    EXPECT_EQ(call(interface, "Start", "nav", 0, 0), "");
}

} // namespace
