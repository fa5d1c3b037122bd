// Calls to a TV service: what its replies may say, how long it may be silent, and what the real one answers.
#include "tvs-api-internal/Messaging.h"
#include "debugutil/MenuItem.h"
#include "host/messaging/EmbeddedService.h"
#include "support/Screens.h"
#include "support/Trees.h"

#include <chrono>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sstream>

namespace
{

/// While there is one, its thread's calls come to it. It answers as told: with those values, and behind a + one argument
/// that no reply has. Told nothing it is silent, and time stands still but where an answer is waited for.
thread_local struct Peer* peer = nullptr;
struct Peer {
    explicit Peer(const char* toldAnswer) : answer(toldAnswer) { peer = this; }
    ~Peer() { peer = nullptr; }
    int Wait(std::uint64_t microseconds)
    {
        waits += std::to_string(microseconds) + " ";
        now += 10;
        return waits.size() < 100 ? 0 : -EIO;
    }
    const char* answer;
    std::int64_t now = 1'000'000'000;
    int flood = 0, unasked = 0; ///< messages that nobody asks for, behind each call and still to come
    std::string waits;
    sd_id128_t bus{}; ///< where the call came from
};

} // namespace

std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept
{
    timespec time = {};
    if (peer == nullptr || peer->answer != nullptr)
        clock_gettime(CLOCK_MONOTONIC, &time);
    else
        time.tv_sec = static_cast<std::time_t>(peer->now);
    return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

int sd_bus_wait(sd_bus* bus, std::uint64_t microseconds)
{
    static const auto wait = reinterpret_cast<decltype(&sd_bus_wait)>(dlsym(RTLD_NEXT, "sd_bus_wait"));
    return peer == nullptr || peer->answer != nullptr ? wait(bus, microseconds) : peer->Wait(microseconds);
}

int sd_bus_process(sd_bus* bus, sd_bus_message** message)
{
    static const auto process = reinterpret_cast<decltype(&sd_bus_process)>(dlsym(RTLD_NEXT, "sd_bus_process"));
    return peer == nullptr || peer->unasked == 0 ? process(bus, message) : peer->unasked-- > 0;
}

int sd_bus_call_async(sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message, sd_bus_message_handler_t take,
                      void* taker, std::uint64_t microseconds)
{
    static const auto call = reinterpret_cast<decltype(&sd_bus_call_async)>(dlsym(RTLD_NEXT, "sd_bus_call_async"));
    if (peer == nullptr)
        return call(bus, slot, message, take, taker, microseconds);
    host::Checked(sd_bus_get_bus_id(bus, &peer->bus));
    peer->unasked = peer->flood;
    if (peer->answer == nullptr)
        return 0;
    host::Checked(sd_bus_message_seal(message, 1, 0));
    sd_bus_message* made = nullptr;
    host::Checked(sd_bus_message_new_method_return(message, &made));
    const host::BusMessage reply(made);
    host::AppendValues(made, Branch(std::istringstream(peer->answer)).GetChildren());
    if (std::strchr(peer->answer, '+') != nullptr)
        host::Checked(sd_bus_message_append(made, "u", 1));
    host::Checked(sd_bus_message_seal(made, 1, 0));
    return take(made, taker, nullptr);
}

namespace
{

const std::string kNotTaken = "failed 1234 old [-1:[0:[0:u3 1:'old'] 1:y0 2:u0]]";

std::unique_ptr<TVServiceAPIConnection> Connect(const char* busSetting)
{
    setenv("TVS_BUS", busSetting, 1);
    return std::make_unique<TVServiceAPIConnection>("", "/TV", true);
}

// Makes a call with a value of every kind both ways, and tells what it left in them.
std::string Talk(TVServiceAPIConnection* connection, int width = 1)
{
    std::uint64_t numbers[] = {1, 2, 3, 4}; // of 1, 2, 4 and 8 bytes, the lower ones first
    std::string text = "old", interface = "com.kavrin.IDebugPrintControl";
    std::vector<TSMenuItem> items(1);
    items[0].setName(text);
    TCMarshalableString string(&text);
    TCMarshalableMenuItems list(&items, std::make_unique<TCMarshalableNodeCreator>());
    TCMarshallingHelperProxy call;
    for (const EMarshallingDirection direction : {MARSHALLING_REPLY, MARSHALLING_REQUEST}) {
        for (int i = 0; i < 4; ++i) {
            const int bytes = i == 0 ? width : 1 << i;
            call.PushValue(direction, bytes, LowerBytes(numbers[i], static_cast<unsigned>(bytes)));
        }
        call.PushMarshalableClass(direction, &string);
        call.PushMarshalableClass(direction, &list);
    }
    std::ostringstream told;
    told << (call.Run(connection, interface, "Execute", 1, false) ? "" : "failed ");
    TCTreeBranch left;
    list.ClassToTree(left);
    told << numbers[0] << numbers[1] << numbers[2] << numbers[3] << ' ' << text << " [" << Show(left) << ']';
    return told.str();
}

TEST(Messaging, TakesHonestRepliesOnly)
{
    const auto connection = Connect("");
    ExpectTalk("replies.talk", [&](const std::string& said) {
        const Peer service(said.c_str());
        return Talk(connection.get());
    });
    EXPECT_EQ(Talk(connection.get(), 3), kNotTaken);
    EXPECT_EQ(Talk(nullptr), kNotTaken);
    EXPECT_EQ(Talk(Connect("nonsense").get()), kNotTaken);
}

TEST(Messaging, WaitsTenSecondsForASilentPeerAndThenOne)
{
    const auto connection = Connect(""), withoutHello = Connect("unixexec:path=sleep,argv1=60");
    const auto bus = [&connection] {
        const Peer service("");
        EXPECT_EQ(Talk(connection.get()), kNotTaken);
        return service.bus;
    };
    const sd_id128_t first = bus();
    EXPECT_TRUE(sd_id128_equal(bus(), first));
    for (TVServiceAPIConnection* const silent : {connection.get(), withoutHello.get()}) {
        const Peer silence(nullptr);
        EXPECT_EQ(Talk(silent) + Talk(silent), kNotTaken + kNotTaken);
        EXPECT_EQ(silence.waits, "10000000 1000000 ");
    }
    EXPECT_FALSE(sd_id128_equal(bus(), first)); // half an answer may be stuck in it
    const Peer silence(nullptr);
    EXPECT_EQ(Talk(connection.get()), kNotTaken);
    EXPECT_EQ(silence.waits, "10000000 "); // it has answered one
}

TEST(Messaging, EndsAFlood)
{
    testing::internal::CaptureStderr();
    for (const int flood : {1000, 1001}) {
        const auto connection = Connect("");
        Peer service(nullptr);
        service.flood = flood;
        EXPECT_EQ(Talk(connection.get()), kNotTaken);
        EXPECT_EQ(service.waits, flood == 1000 ? "10000000 " : "");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "TV service on this process: no answer within 10 s\n"
              "TV service on this process: a flood of messages that nobody asked for\n");
}

// The answer to one call, written as "Start 0", with its values behind.
std::string Ask(const host::Bus& client, const std::string& call)
{
    std::istringstream stream(call);
    std::int16_t number = -1;
    std::string method;
    stream >> method >> number;
    sd_bus_message *made = nullptr, *received = nullptr;
    host::Checked(sd_bus_message_new_method_call(client.get(), &made, "com.kavrin.TVService",
                                                 "/com/kavrin/TVService/SignalObject", "com.kavrin.IDebugPrintControl",
                                                 method.c_str()));
    const host::BusMessage request(made);
    host::Checked(sd_bus_message_append_basic(made, 'n', &number));
    host::AppendValues(made, Branch(std::move(stream)).GetChildren());
    sd_bus_error error = {};
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
    ExpectTalk("service.talk", [&](const std::string& said) { return FoldMenus(Ask(client, said)); });
    std::string tooMany;
    for (int i = 0; i <= 100'000; ++i)
        tooMany += " 0:y1";
    EXPECT_EQ(Ask(client, "Stop 2" + tooMany), "Message too long");
    EXPECT_EQ(Ask(client, "Stop 2" + tooMany.substr(5)), "more values than the method takes");
}

} // namespace
