// Calls to the TV service: their timeouts, values that cannot be sent, and the replies of the debug print service.
#include "tvs-api-internal/Messaging.h"
#include "host/messaging/Channel.h"
#include "support/CallService.h"
#include "support/Recording.h"

#include <gtest/gtest.h>
#include <thread>

namespace
{

using namespace std::chrono_literals;

/// Connects to the embedded service, or simulates an unresponsive one. Its clock only advances while it waits. Records
/// the calls.
class RecordingTransport : public host::BusTransport
{
public:
    explicit RecordingTransport(std::string& calls, std::optional<std::string> setting = std::nullopt)
        : BusTransport(std::move(setting)), m_calls(calls)
    {
    }

    host::Clock::time_point Now() override { return m_now; }
    host::Bus Open(host::Clock::time_point end) override
    {
        m_calls += "open ";
        return BusTransport::Open(end);
    }
    bool Process(sd_bus* bus) override
    {
        if (flood) {
            m_now += 1ms;
            return true;
        }
        return BusTransport::Process(bus);
    }
    void Wait(sd_bus* bus, host::Clock::time_point end) override
    {
        if (responsive)
            return BusTransport::Wait(bus, host::Clock::now() + 60s);
        m_calls += "wait " + std::to_string((end - m_now) / 1ms) + " ";
        m_now = end;
        host::Checked(-ETIMEDOUT);
    }
    host::BusSlot Send(sd_bus* bus, sd_bus_message* call, host::BusMessage& reply) override
    {
        m_calls += "send ";
        return responsive ? BusTransport::Send(bus, call, reply) : host::BusSlot();
    }

    bool responsive = true;
    bool flood = false; ///< messages that are no replies arrive without end

private:
    std::string& m_calls;
    host::Clock::time_point m_now;
};

std::string ResultOfStop(host::Channel& channel)
{
    try {
        channel.Call(host::kDebugPrintInterface, "Stop", 2, {});
        return "answered";
    } catch (const std::exception& error) {
        return error.what();
    }
}

TEST(Messaging, ReconnectsAfterATimeoutOfTenSeconds)
{
    std::string calls;
    auto owned = std::make_unique<RecordingTransport>(calls);
    RecordingTransport& transport = *owned;
    host::Channel channel(host::kServiceObjectPath, "cannot open", std::move(owned));
    const auto stop = [&](bool responsive) {
        transport.responsive = responsive;
        return ResultOfStop(channel);
    };
    EXPECT_EQ(stop(true), "answered");
    EXPECT_EQ(stop(true), "answered");
    EXPECT_EQ(calls, "open send send "); // both on one connection
    calls.clear();
    EXPECT_EQ(stop(false), "no answer within 10 s");
    EXPECT_EQ(stop(true), "answered"); // on a new connection: the old one may hold half a reply
    EXPECT_EQ(stop(false), "no answer within 10 s");
    EXPECT_EQ(calls, "send wait 10000 open send send wait 10000 ");
}

TEST(Messaging, LimitsTheTimeOfTheHandshake)
{
    std::string calls;
    auto owned = std::make_unique<RecordingTransport>(calls, "unixexec:path=sleep,argv1=60");
    owned->responsive = false;
    host::Channel channel(host::kServiceObjectPath, "cannot open", std::move(owned));
    EXPECT_EQ(calls, "open wait 200 "); // the longest delay of the first prompt
    EXPECT_EQ(ResultOfStop(channel), "no answer within 10 s");
    EXPECT_EQ(ResultOfStop(channel), "no answer within 1 s");
    EXPECT_EQ(calls, "open wait 200 wait 10000 open wait 1000 ");
}

TEST(Messaging, TimesOutWhenOtherMessagesKeepArriving)
{
    std::string calls;
    auto owned = std::make_unique<RecordingTransport>(calls);
    RecordingTransport& transport = *owned;
    host::Channel channel(host::kServiceObjectPath, "cannot open", std::move(owned));
    transport.flood = true;
    EXPECT_EQ(ResultOfStop(channel), "no answer within 10 s");
}

// libsystemd cannot cancel a name lookup. A later call uses the result.
TEST(Messaging, LimitsTheTimeOfANameLookup)
{
    std::future<host::Bus> opening;
    std::promise<void> resolved;
    const auto open = [&] {
        resolved.get_future().wait();
        host::Checked(-EHOSTUNREACH);
        return host::Bus();
    };
    const auto report = [&] {
        try {
            host::Step("cannot open", [&] { return host::OpenOnThread(opening, open, host::Clock::now() + 50ms); });
            return std::string("opened");
        } catch (const std::system_error& error) {
            return std::string(error.what());
        }
    };
    EXPECT_EQ(report(), "cannot open: Connection timed out");
    resolved.set_value();
    opening.wait();
    EXPECT_EQ(report(), "cannot open: No route to host");
}

TEST(Messaging, RejectsValuesOfTheWrongSize)
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
                                                      "TV service on this process: the call failed: malformed reply\n");
}

TEST(DebugPrintService, RepliesToEveryMethod)
{
    host::EmbeddedService service;
    const host::Bus client = service.Connect();
    ExpectExchanges("service", {std::begin(kDebugPrintMethodNames), std::end(kDebugPrintMethodNames)},
                    [&](const std::string& request) { return FoldMenus(CallService(client, request)); });
    EXPECT_EQ(CallService(client, "Start " + std::to_string(DEBUG_PRINT_METHOD_COUNT)), "no method has that number");
    const auto setName = [&client](unsigned size) {
        const std::string name = "[0:u" + std::to_string(size) + " 1:'" + std::string(size, 'n') + "']";
        return CallService(client, "SetMenuItems 5 0:[-1:[0:" + name + " 1:y0 2:u1]]");
    };
    EXPECT_EQ(setName(16 << 20), "0:u1");
    EXPECT_EQ(setName((16 << 20) + 1), "the names are too long for an answer");
    std::string tooMany;
    for (int i = 0; i <= 100'000; ++i)
        tooMany += " 0:y1";
    EXPECT_EQ(CallService(client, "Stop 2" + tooMany), "Message too long");
    EXPECT_EQ(CallService(client, "Stop 2" + tooMany.substr(5)), "more values than the method takes");
}

} // namespace
