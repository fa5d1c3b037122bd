// Calls to a TV service: what its replies may say, how long it may be silent, and what the embedded one answers.
#include "tvs-api-internal/Messaging.h"
#include "debugutil/MenuItem.h"
#include "host/messaging/EmbeddedService.h"
#include "support/FakeService.h"
#include "support/RemoteScreen.h"
#include "support/TestBus.h"
#include "support/Trees.h"
#include "tvs-api/Types.h"

#include <ctime>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

constexpr const char* kPath = "/com/kavrin/TVService/SignalObject";
constexpr const char* kInterface = "com.kavrin.IDebugPrintControl";

/// While there is one, time stands still for its thread, and passes where an answer is waited for: none comes.
struct Silence {
    Silence() { current = this; }
    ~Silence() { current = nullptr; }
    std::int64_t now = 1'000'000'000;
    std::string waits; ///< microseconds
    static thread_local Silence* current;

    int Wait(std::uint64_t microseconds)
    {
        waits += std::to_string(microseconds) + " ";
        now += 10;
        return waits.size() > 100 ? -EIO : 0;
    }
};
thread_local Silence* Silence::current = nullptr;

template <class Function> Function* Real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    if (Silence::current == nullptr || clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    *time = {Silence::current->now, 0};
    return 0;
}

int sd_bus_wait(sd_bus* bus, std::uint64_t microseconds)
{
    static const auto real = Real<decltype(sd_bus_wait)>("sd_bus_wait");
    return Silence::current == nullptr ? real(bus, microseconds) : Silence::current->Wait(microseconds);
}

int sd_bus_call(sd_bus* bus, sd_bus_message* call, std::uint64_t microseconds, sd_bus_error* error,
                sd_bus_message** reply)
{
    static const auto real = Real<decltype(sd_bus_call)>("sd_bus_call");
    if (Silence::current == nullptr)
        return real(bus, call, microseconds, error, reply);
    Silence::current->Wait(microseconds);
    return -ETIMEDOUT;
}

namespace
{

// A call with a value of every kind, both ways.
std::string Talk(TVServiceAPIConnection* connection, int width = 1)
{
    std::uint8_t y = 1;
    std::uint16_t q = 2;
    std::uint32_t u = 3;
    std::uint64_t t = 4;
    std::string text = "old", interface = kInterface;
    std::vector<TSMenuItem> items(2);
    TCMarshalableString string(&text);
    TCMarshalableMenuItems list(&items, std::make_unique<TCMarshalableNodeCreator>());
    TCMarshallingHelperProxy call;
    for (const EMarshallingDirection direction : {MARSHALLING_REPLY, MARSHALLING_REQUEST}) {
        call.PushValue(direction, width, &y);
        call.PushValue(direction, 2, &q);
        call.PushValue(direction, 4, &u);
        call.PushValue(direction, 8, &t);
        call.PushMarshalableClass(direction, &string);
        call.PushMarshalableClass(direction, &list);
    }
    const bool succeeded = call.Run(connection, interface, "Execute", 1, false);
    std::string plain;
    for (const std::uint64_t number : {std::uint64_t{y}, std::uint64_t{q}, std::uint64_t{u}, t})
        plain += std::to_string(number);
    return succeeded ? plain + text + std::to_string(items.size()) : "failed " + plain;
}

constexpr std::uint64_t k8 = 8;
const Answer kHonest = Reply("av", 6, "y", 5, "q", 6, "u", 7, "t", k8, "a(nv)", 2, 0, "u", 3, 1, "ay", 3, 'n', 'e', 'w',
                             "a(nv)", 1, -1, "a(nv)", 3, 0, "a(nv)", 1, 0, "u", 0, 1, "y", 1, 2, "u", 7);

TEST(Messaging, RefusesRepliesThatLie)
{
    const auto plain = [](auto... p) { return Reply("av", 6, p..., "a(nv)", 1, 0, "u", 0, "a(nv)", 0); };
    const auto behind = [](auto... b) { return Reply("av", 6, "y", 5, "q", 6, "u", 7, "t", k8, b...); };
    const Answer lies[] = {
        Reply("av", 0),
        Reply("av", 5, "y", 5, "q", 6, "u", 7, "t", k8, "a(nv)", 1, 0, "u", 0),
        Reply("av", 7, "y", 5, "q", 6, "u", 7, "t", k8, "a(nv)", 1, 0, "u", 0, "a(nv)", 0, "y", 1),
        Reply("u", 1),
        Reply("avu", 6, "y", 5, "q", 6, "u", 7, "t", k8, "a(nv)", 1, 0, "u", 0, "a(nv)", 0, 1),
        plain("q", 5, "y", 6, "u", 7, "t", k8),
        plain("y", 5, "q", 6, "t", k8, "u", 7),
        plain("y", 5, "q", 6, "i", 7, "t", k8),
        plain("y", 5, "q", 6, "s", "text", "t", k8),
        plain("y", 5, "q", 6, "ay", 4, 1, 2, 3, 4, "t", k8),
        plain("y", 5, "q", 6, "a(nv)", 0, "t", k8),
        plain("y", 5, "q", 6, "av", 0, "t", k8),
        behind("u", 3, "a(nv)", 0),
        behind("a(nv)", 2, 0, "u", 4, 1, "ay", 3, 'n', 'e', 'w', "a(nv)", 0),
        behind("a(nv)", 2, 0, "u", 3, 1, "s", "new", "a(nv)", 0),
        behind("a(nv)", 1, 0, "u", 0, "a(nv)", 1, -1, "u", 7),
        behind("a(nv)", 1, 0, "u", 0, "a(nv)", 1, 0, "a(nv)", 3, 0, "a(nv)", 1, 0, "u", 0, 1, "y", 1, 2, "u", 7),
        behind("a(nv)", 1, 0, "u", 0, "a(nv)", 1, -1, "a(nv)", 3, 0, "a(nv)", 1, 0, "u", 9, 1, "y", 1, 2, "u", 7),
    };
    std::vector<Answer> answers;
    for (const Answer& lie : lies)
        answers.insert(answers.end(), {lie, kHonest});
    TestBus bus;
    setenv("TVS_BUS", bus.Address().c_str(), 1);
    FakeService service(bus.Address(), answers);
    TVServiceAPIConnection connection("", kPath, true);
    for (std::size_t i = 0; i < std::size(lies); ++i) {
        EXPECT_EQ(Talk(&connection), "failed 1234") << i;
        EXPECT_EQ(Talk(&connection), "5678new1") << i;
    }
    EXPECT_EQ(Talk(&connection, 3), "failed 1234");
    EXPECT_EQ(Talk(nullptr), "failed 1234");
    const std::string call = "/com/kavrin/TVService/SignalObject 1 Execute(0:y1 1:q2 2:u3 3:t4 4:[0:u3 1:\"old\"] "
                             "5:[-1:[0:[0:u0] 1:y0 2:u0] -1:[0:[0:u0] 1:y0 2:u0]])\n";
    EXPECT_EQ(service.End().substr(0, call.size()), call);
    for (const char* setting : {"nonsense", "unix:path=/nowhere"}) {
        setenv("TVS_BUS", setting, 1);
        TVServiceAPIConnection nowhere("", kPath, true);
        EXPECT_EQ(Talk(&nowhere), "failed 1234");
    }
}

TEST(Messaging, WaitsTenSecondsForASilentPeer)
{
    setenv("TVS_BUS", "unixexec:path=sleep,argv1=60", 1); // a bus that does not say hello
    {
        TVServiceAPIConnection connection("", kPath, true);
        Silence silence;
        EXPECT_EQ(Talk(&connection), "failed 1234");
        EXPECT_EQ(silence.waits, "10000000 ");
    }
    TestBus bus;
    setenv("TVS_BUS", bus.Address().c_str(), 1);
    FakeService service(bus.Address(), {kHonest, kHonest});
    TVServiceAPIConnection connection("", kPath, true);
    EXPECT_EQ(Talk(&connection), "5678new1");
    {
        Silence silence;
        EXPECT_EQ(Talk(&connection), "failed 1234");
        EXPECT_EQ(silence.waits, "10000000 ");
    }
    EXPECT_EQ(Talk(&connection), "5678new1");
}

// A message of this process, to read what stands in it.
class LocalMessage
{
public:
    LocalMessage()
    {
        sd_bus_message* made = nullptr;
        host::Checked(sd_bus_message_new_signal(m_bus.get(), &made, "/", "a.b", "C"));
        message.reset(made);
    }
    std::string Read()
    {
        host::Checked(sd_bus_message_seal(message.get(), 1, 0));
        try {
            return Show(host::ReadValues(message.get()));
        } catch (const std::system_error& error) {
            return error.what();
        }
    }

private:
    host::EmbeddedService m_service;
    host::Bus m_bus = m_service.Connect();

public:
    host::BusMessage message;
};

TCTreeNode Nested(int levels, TCTreeNode innermost)
{
    while (levels-- > 0) {
        TCTreeBranch branch;
        branch.AppendChild(std::move(innermost));
        innermost = {0, branch};
    }
    return innermost;
}

TEST(MessageCodec, TakesTreesOfHonestSizeOnly)
{
    const TCTreeNode leaf(0, std::uint8_t{1}), bytes(0, TCTreeNode::Bytes{'a'});
    const auto read = [](const std::vector<TCTreeNode>& values) {
        LocalMessage local;
        host::AppendValues(local.message.get(), values);
        return local.Read();
    };
    EXPECT_EQ(read({leaf, leaf, Nested(1, bytes)}), "0:y1 1:y1 2:[0:\"a\"]");
    EXPECT_EQ(read({Nested(16, leaf)}), "0:" + Show({Nested(16, leaf)}).substr(2));
    EXPECT_EQ(read({Nested(17, leaf)}), "Bad message");
    EXPECT_EQ(read({bytes}), "Bad message");
    EXPECT_EQ(read(std::vector(100'000, leaf)).substr(0, 4), "0:y1");
    EXPECT_EQ(read(std::vector(100'001, leaf)), "Message too long");
}

std::string ScreenShown(const std::string& text)
{
    return "0:u1 1:[0:u" + std::to_string(text.size()) + " 1:\"" + text + "\"]";
}

TEST(DebugPrintService, AnswersEveryMethod)
{
    host::EmbeddedService service;
    const host::Bus client = service.Connect();
    const auto ask = [&](const char* method, const char* types, auto... arguments) {
        sd_bus_error error = SD_BUS_ERROR_NULL;
        sd_bus_message* reply = nullptr;
        const int result = sd_bus_call_method(client.get(), "com.kavrin.TVService", kPath, kInterface, method, &error,
                                              &reply, types, arguments...);
        const host::BusMessage owned(reply);
        const std::string answer = result < 0 ? error.message : Show(host::ReadValues(reply));
        sd_bus_error_free(&error);
        return answer;
    };
    const auto type = [&](auto... bytes) {
        const int size = sizeof...(bytes);
        return ask("Execute", "nav", 1, 1, "a(nv)", 2, 0, "u", size, 1, "ay", size, bytes...);
    };
    const std::string off = RemoteScreen("off"), unknown = ScreenShown("Not an item of this menu\n" + off);
    EXPECT_EQ(ask("Start", "nav", 0, 0), ScreenShown(off));
    EXPECT_EQ(type('3'), ScreenShown(RemoteScreen("on")));
    EXPECT_EQ(ask("Check", "nav", 3, 0), "0:u1 1:u1");
    EXPECT_EQ(type('0', '3'), ScreenShown(off));
    EXPECT_EQ(ask("Check", "nav", 3, 0), "0:u1 1:u0");
    EXPECT_EQ(type('9', '9'), "0:u0 1:[0:u0]");
    for (const std::string& answer :
         {type('9', '8'), type('1', '0', '0'), type('-', '3'), type('3', 'x'), type('0'), type('7'),
          type('x', '\0', 'y'), ask("Execute", "nav", 1, 1, "a(nv)", 1, 0, "u", 0)})
        EXPECT_EQ(answer, unknown);
    EXPECT_EQ(ask("Stop", "nav", 2, 0), "0:u1");

    EXPECT_EQ(ask("SetQoSEnabled", "nav", 7, 1, "y", 2), "0:u1");
    EXPECT_EQ(ask("SetDebugMode", "nav", 9, 2, "u", DEBUG_MODE_SIGNAL, "y", 1), "0:u1");
    EXPECT_EQ(ask("SetDebugMode", "nav", 9, 2, "u", 3, "y", 1), "0:u0");
    EXPECT_EQ(ask("IsQoSEnabled", "nav", 8, 0), "0:y1");
    EXPECT_EQ(ask("IsDebugModeEnabled", "nav", 10, 1, "u", DEBUG_MODE_SIGNAL), "0:y1");
    EXPECT_EQ(ask("IsDebugModeEnabled", "nav", 10, 1, "u", DEBUG_MODE_PRINT), "0:y0");
    EXPECT_EQ(ask("IsDebugModeEnabled", "nav", 10, 1, "u", 3), "0:y0");
    EXPECT_EQ(ask("Start", "nav", 0, 0), ScreenShown(RemoteScreen("off", "on", "on")));
    EXPECT_EQ(ask("SetQoSEnabled", "nav", 7, 1, "y", 0), "0:u1");
    EXPECT_EQ(ask("SetDebugMode", "nav", 9, 2, "u", DEBUG_MODE_SIGNAL, "y", 0), "0:u1");
    EXPECT_EQ(ask("SetDebugMode", "nav", 9, 2, "u", DEBUG_MODE_PERFORMANCE, "y", 0), "0:u1");
    EXPECT_EQ(ask("Start", "nav", 0, 0), ScreenShown(off));

    EXPECT_EQ(ask("GetMenuItems", "nav", 4, 0),
              "0:u1 1:[-1:[0:[0:u5 1:\"Tuner\"] 1:y0 2:u1] -1:[0:[0:u6 1:\"Source\"] 1:y0 2:u2] "
              "-1:[0:[0:u5 1:\"Video\"] 1:y0 2:u3] -1:[0:[0:u5 1:\"Audio\"] 1:y0 2:u4] "
              "-1:[0:[0:u12 1:\"Service list\"] 1:y0 2:u5] -1:[0:[0:u15 1:\"Programme guide\"] 1:y0 2:u6]]");
    const auto setItem = [&](int id) {
        return ask("SetMenuItem", "nav", 6, 1, "a(nv)", 3, 0, "a(nv)", 2, 0, "u", 1, 1, "ay", 1, 'N', 1, "y", 2, 2, "u",
                   id);
    };
    EXPECT_EQ(ask("SetMenuItems", "nav", 5, 1, "a(nv)", 2, -1, "a(nv)", 3, 0, "a(nv)", 1, 0, "u", 0, 1, "y", 1, 2, "u",
                  9, -1, "a(nv)", 3, 0, "a(nv)", 1, 0, "u", 0, 1, "y", 0, 2, "u", 8),
              "0:u1");
    EXPECT_EQ(setItem(8), "0:u1");
    EXPECT_EQ(setItem(7), "0:u0");
    EXPECT_EQ(ask("GetMenuItems", "nav", 4, 0), "0:u1 1:[-1:[0:[0:u0] 1:y1 2:u9] -1:[0:[0:u1 1:\"N\"] 1:y1 2:u8]]");
    EXPECT_EQ(ask("Check", "nav", 3, 0), "0:u1 1:u2");

    const std::string form = "a value has another form", more = "more values than the method takes";
    EXPECT_EQ(ask("Start", "nav", 1, 0), "the number is not the method's");
    EXPECT_EQ(ask("Start", "nav", 11, 0), "no method has that number");
    EXPECT_EQ(ask("Start", "nav", -1, 0), "no method has that number");
    EXPECT_EQ(ask("Execute", "nav", 1, 0), form);
    EXPECT_EQ(ask("Execute", "nav", 1, 1, "a(nv)", 2, 0, "u", 2, 1, "ay", 1, 'x'), "a text has another length");
    EXPECT_EQ(ask("Execute", "nav", 1, 1, "a(nv)", 2, 0, "u", 0, 1, "ay", 0), more);
    EXPECT_EQ(ask("SetQoSEnabled", "nav", 7, 1, "u", 1), form);
    EXPECT_EQ(ask("SetMenuItem", "nav", 6, 1, "a(nv)", 4, 0, "a(nv)", 1, 0, "u", 0, 1, "y", 1, 2, "u", 9, 3, "y", 1),
              more);
    for (const auto& [method, number] : {std::pair("Start", 0), std::pair("Stop", 2), std::pair("Check", 3),
                                         std::pair("GetMenuItems", 4), std::pair("IsQoSEnabled", 8)})
        EXPECT_EQ(ask(method, "nav", number, 1, "y", 1), more);
    EXPECT_EQ(ask("Execute", "nav", 1, 2, "a(nv)", 1, 0, "u", 0, "y", 1), more);
    EXPECT_EQ(ask("SetMenuItems", "nav", 5, 2, "a(nv)", 0, "y", 1), more);
    EXPECT_EQ(ask("SetQoSEnabled", "nav", 7, 2, "y", 1, "y", 1), more);
    EXPECT_EQ(ask("SetDebugMode", "nav", 9, 3, "u", 0, "y", 1, "y", 1), more);
    EXPECT_EQ(ask("IsDebugModeEnabled", "nav", 10, 2, "u", 0, "y", 1), more);
}

} // namespace
