// Calls to a TV service: how long it may be silent, and what the real one answers.
#include "tvs-api-internal/Messaging.h"
#include "debugutil/DebugPrintControlProxy.h"
#include "host/messaging/EmbeddedService.h"
#include "support/Ask.h"
#include "support/Screens.h"
#include "support/Talk.h"

#include <chrono>
#include <ctime>
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace
{

sd_id128_t g_lastBus{}; // where the last call came from

/// While there is one, its thread's calls come to it. It is silent, and time stands still but where an answer is waited
/// for.
thread_local struct SilentPeer* peer = nullptr;
struct SilentPeer {
    SilentPeer() { peer = this; }
    ~SilentPeer() { peer = nullptr; }
    int Wait(std::uint64_t microseconds)
    {
        waits += std::to_string(microseconds) + " ";
        now += 10;
        return waits.size() < 100 ? 0 : -EIO;
    }
    std::int64_t now = 1'000'000'000;
    int flood = 0, unasked = 0; ///< messages that nobody asks for, behind each call and still to come
    std::string waits;
};

} // namespace

std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept
{
    timespec time = {};
    if (peer == nullptr)
        clock_gettime(CLOCK_MONOTONIC, &time);
    else
        time.tv_sec = static_cast<std::time_t>(peer->now);
    return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

int sd_bus_wait(sd_bus* bus, std::uint64_t microseconds)
{
    static const auto wait = reinterpret_cast<decltype(&sd_bus_wait)>(dlsym(RTLD_NEXT, "sd_bus_wait"));
    return peer == nullptr ? wait(bus, microseconds) : peer->Wait(microseconds);
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
    host::Checked(sd_bus_get_bus_id(bus, &g_lastBus));
    if (peer == nullptr)
        return call(bus, slot, message, take, taker, microseconds);
    peer->unasked = peer->flood;
    return 0;
}

namespace
{

TCDebugPrintControlProxy Connect(const char* busSetting)
{
    setenv("TVS_BUS", busSetting, 1);
    return TCDebugPrintControlProxy(host::kDebugPrintInterface,
                                    std::make_unique<TVServiceAPIConnection>("", host::kServiceObjectPath, true));
}

TEST(Messaging, WaitsTenSecondsForASilentPeerAndThenOne)
{
    auto proxy = Connect(""), withoutHello = Connect("unixexec:path=sleep,argv1=60");
    EXPECT_EQ(Connect("nonsense").Stop(), -1);
    {
        const SilentPeer silence;
        Connect("unixexec:path=sleep,argv1=60");
        EXPECT_EQ(silence.waits, "200000 "); // the first prompt waits no longer
    }
    const auto bus = [&proxy] {
        EXPECT_EQ(proxy.Stop(), 1);
        return g_lastBus;
    };
    const sd_id128_t first = bus();
    EXPECT_TRUE(sd_id128_equal(bus(), first));
    for (TCDebugPrintControlProxy* const silent : {&proxy, &withoutHello}) {
        const SilentPeer silence;
        EXPECT_EQ(silent->Stop() + silent->Stop(), -2);
        EXPECT_EQ(silence.waits, "10000000 1000000 ");
    }
    EXPECT_FALSE(sd_id128_equal(bus(), first)); // half an answer may be stuck in it
    const SilentPeer silence;
    EXPECT_EQ(proxy.Stop(), -1);
    EXPECT_EQ(silence.waits, "10000000 "); // it has answered one
}

TEST(Messaging, EndsAFlood)
{
    testing::internal::CaptureStderr();
    for (const int flood : {1000, 1001}) {
        auto proxy = Connect("");
        SilentPeer service;
        service.flood = flood;
        EXPECT_EQ(proxy.Stop(), -1);
        EXPECT_EQ(service.waits, flood == 1000 ? "10000000 " : "");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "TV service on this process: no answer within 10 s\n"
              "TV service on this process: a flood of messages that nobody asked for\n");
}

TEST(Messaging, RefusesWhatDoesNotFit)
{
    testing::internal::CaptureStderr();
    setenv("TVS_BUS", "", 1);
    TVServiceAPIConnection connection("", host::kServiceObjectPath, true);
    std::string interface = host::kDebugPrintInterface;
    std::uint64_t number = 5;
    TCMarshallingHelperProxy odd, wide;
    odd.PushValue(MARSHALLING_REQUEST, 3, &number);
    wide.PushValue(MARSHALLING_REPLY, 8, &number);
    EXPECT_FALSE(odd.Run(&connection, interface, "SetQoSEnabled", 7, false));
    EXPECT_FALSE(wide.Run(&connection, interface, "Stop", 2, false) || wide.Run(nullptr, interface, "Stop", 2, false));
    EXPECT_EQ(number, 5U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "TV service on this process: a value cannot be sent\n"
                                                      "TV service on this process: a reply of another form\n");
}

TEST(DebugPrintService, AnswersEveryMethod)
{
    host::EmbeddedService service;
    const host::Bus client = service.Connect();
    ExpectTalk("service.talk", [&](const std::string& said) { return FoldMenus(Ask(client, said)); });
    const auto setName = [&client](unsigned size) {
        const std::string name = "[0:u" + std::to_string(size) + " 1:'" + std::string(size, 'n') + "']";
        return Ask(client, "SetMenuItems 5 0:[-1:[0:" + name + " 1:y0 2:u1]]");
    };
    EXPECT_EQ(setName(16 << 20), "0:u1");
    EXPECT_EQ(setName((16 << 20) + 1), "the names are too long for an answer");
    std::string tooMany;
    for (int i = 0; i <= 100'000; ++i)
        tooMany += " 0:y1";
    EXPECT_EQ(Ask(client, "Stop 2" + tooMany), "Message too long");
    EXPECT_EQ(Ask(client, "Stop 2" + tooMany.substr(5)), "more values than the method takes");
}

} // namespace
