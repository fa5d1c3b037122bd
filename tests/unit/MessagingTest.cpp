// Calls to a TV service: what its replies may say, how long it may be silent, and what the real one answers.
#include "tvs-api-internal/Messaging.h"
#include "debugutil/MenuItem.h"
#include "host/messaging/EmbeddedService.h"
#include "support/FakeService.h"
#include "support/TestBus.h"
#include "support/Trees.h"

#include <ctime>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

/// While there is one, time stands still for its thread but where an answer is waited for: there none comes.
thread_local struct Silence* silence = nullptr;
struct Silence {
    Silence() { silence = this; }
    ~Silence() { silence = nullptr; }
    void Wait(std::uint64_t microseconds)
    {
        waits += std::to_string(microseconds) + " ";
        now += 10;
    }
    std::int64_t now = 1'000'000'000;
    std::string waits;
};

std::string caller; // the name of the connection that called last

} // namespace

int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    if (silence == nullptr || clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    *time = {silence->now, 0};
    return 0;
}

int sd_bus_wait(sd_bus* bus, std::uint64_t microseconds)
{
    if (silence == nullptr)
        return reinterpret_cast<decltype(&sd_bus_wait)>(dlsym(RTLD_NEXT, "sd_bus_wait"))(bus, microseconds);
    silence->Wait(microseconds);
    return silence->waits.size() < 100 ? 0 : -EIO;
}

int sd_bus_call(sd_bus* bus, sd_bus_message* call, std::uint64_t microseconds, sd_bus_error* error,
                sd_bus_message** reply)
{
    const char* name = "";
    sd_bus_get_unique_name(bus, &name);
    caller = name;
    if (silence == nullptr)
        return reinterpret_cast<decltype(&sd_bus_call)>(dlsym(RTLD_NEXT, "sd_bus_call"))(bus, call, microseconds, error,
                                                                                         reply);
    silence->Wait(microseconds);
    return -ETIMEDOUT;
}

namespace
{

const std::string kPath = "/com/kavrin/TVService/SignalObject";
const std::string kHonest = "0:y5 1:q6 2:u7 3:t8 4:[0:u3 1:'new'] 5:[] 6:[0:[0:u0] 1:y0 2:u0]";
const std::string kTaken = "5678 new [] [0:[0:u3 1:'old'] 1:y0 2:u0]",
                  kNotTaken = "failed 1234 old [-1:[0:[0:u3 1:'old'] 1:y1 2:u0] -1:[0:[0:u0] 1:y0 2:u0]] "
                              "[0:[0:u3 1:'old'] 1:y1 2:u0]";

const std::string kCall =
    kPath +
    " 1 Execute(0:y1 1:q2 2:u3 3:t4 4:[0:u3 1:'old'] 5:[-1:[0:[0:u3 1:'old'] 1:y1 2:u0] -1:[0:[0:u0] 1:y0 2:u0]] "
    "6:[0:[0:u3 1:'old'] 1:y1 2:u0])\n";

std::unique_ptr<TVServiceAPIConnection> Connect(const std::string& busSetting)
{
    setenv("TVS_BUS", busSetting.c_str(), 1);
    return std::make_unique<TVServiceAPIConnection>("", kPath, true);
}

// Makes a call with a value of every kind both ways, and tells what it left in them.
std::string Talk(TVServiceAPIConnection* connection, int width = 1)
{
    std::uint8_t y = 1;
    std::uint16_t q = 2;
    std::uint32_t u = 3;
    std::uint64_t t = 4;
    std::string text = "old", interface = "com.kavrin.IDebugPrintControl";
    std::vector<TSMenuItem> items(2);
    items[0].setName(text);
    items[0].setState(true);
    TSMenuItem item = items[0];
    TCMarshalableString string(&text);
    TCMarshalableMenuItems list(&items, std::make_unique<TCMarshalableNodeCreator>());
    TCMarshallingHelperProxy call;
    for (const EMarshallingDirection direction : {MARSHALLING_REPLY, MARSHALLING_REQUEST}) {
        call.PushValue(direction, width, &y);
        call.PushValue(direction, 2, &q);
        call.PushValue(direction, 4, &u);
        call.PushValue(direction, 8, &t);
        for (TIMarshalable* const object : std::initializer_list<TIMarshalable*>{&string, &list, &item})
            call.PushMarshalableClass(direction, object);
    }
    std::ostringstream told;
    told << (call.Run(connection, interface, "Execute", 1, false) ? "" : "failed ");
    TCTreeBranch listed, shown;
    list.ClassToTree(listed);
    item.ClassToTree(shown);
    told << +y << q << u << t << ' ' << text << " [" << Show(listed) << "] [" << Show(shown) << ']';
    return told.str();
}

TEST(Messaging, TakesHonestRepliesOnly)
{
    TestBus bus;
    const auto connection = Connect(bus.Address());
    ExpectTalk("replies.talk", [&](const std::string& said) {
        FakeService service(bus.Address(), {said, kHonest});
        const std::string told = Talk(connection.get());
        EXPECT_EQ(Talk(connection.get()), kTaken) << said;
        EXPECT_EQ(service.End().substr(0, kCall.size()), kCall);
        return told;
    });
    EXPECT_EQ(Talk(connection.get(), 3), kNotTaken);
    EXPECT_EQ(Talk(nullptr), kNotTaken);
    EXPECT_EQ(Talk(Connect("nonsense").get()), kNotTaken);
    EXPECT_EQ(Talk(Connect("unix:path=/nowhere").get()), kNotTaken);
}

TEST(Messaging, WaitsTenSecondsForASilentPeer)
{
    TestBus bus;
    FakeService service(bus.Address(), {kHonest, kHonest, kHonest});
    const auto connection = Connect(bus.Address()), withoutHello = Connect("unixexec:path=sleep,argv1=60"),
               embedded = Connect("");
    EXPECT_EQ(Talk(connection.get()), kTaken);
    const std::string first = caller;
    EXPECT_EQ(Talk(connection.get()), kTaken);
    EXPECT_EQ(caller, first);
    for (TVServiceAPIConnection* silent : {connection.get(), withoutHello.get(), embedded.get()}) {
        const Silence tenSeconds;
        EXPECT_EQ(Talk(silent), kNotTaken);
        EXPECT_EQ(tenSeconds.waits, "10000000 ");
    }
    EXPECT_EQ(Talk(connection.get()), kTaken);
    EXPECT_NE(caller, first); // where half an answer may be stuck
    EXPECT_EQ(Talk(embedded.get()), kNotTaken);
}

// The answer to one call, written as "0 Start()".
std::string Ask(const host::Bus& client, const std::string& call)
{
    std::istringstream stream(call);
    std::int16_t number = -1;
    std::string method, values;
    std::getline(std::getline(stream >> number >> std::ws, method, '('), values, ')');
    sd_bus_message *made = nullptr, *received = nullptr;
    host::Checked(sd_bus_message_new_method_call(client.get(), &made, "com.kavrin.TVService", kPath.c_str(),
                                                 "com.kavrin.IDebugPrintControl", method.c_str()));
    const host::BusMessage request(made);
    host::Checked(sd_bus_message_append_basic(made, 'n', &number));
    host::AppendValues(made, Branch(values).GetChildren());
    sd_bus_error error = SD_BUS_ERROR_NULL;
    TCTreeBranch answer;
    if (sd_bus_call(client.get(), made, 0, &error, &received) >= 0)
        answer.GetChildren() = host::ReadValues(received);
    const host::BusMessage reply(received);
    const std::string text = error.message == nullptr ? Show(answer) : error.message;
    sd_bus_error_free(&error);
    return text;
}

TEST(DebugPrintService, AnswersEveryMethod)
{
    host::EmbeddedService service;
    const host::Bus client = service.Connect();
    ExpectTalk("service.talk", [&](const std::string& said) { return Ask(client, said); });
    std::string tooMany;
    for (int i = 0; i <= 100'000; ++i)
        tooMany += " 0:y1";
    EXPECT_EQ(Ask(client, "2 Stop(" + tooMany + ")"), "Message too long");
    EXPECT_EQ(Ask(client, "2 Stop(" + tooMany.substr(5) + ")"), "more values than the method takes");
}

} // namespace
