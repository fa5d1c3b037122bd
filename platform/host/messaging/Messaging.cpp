// Remote calls over sd-bus, on the calling thread.
#include "tvs-api-internal/Messaging.h"

#include "host/call/Operation.h"
#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"
#include "host/messaging/EmbeddedService.h"

#include <cerrno>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace
{

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kAnswerTime(10);
constexpr std::chrono::seconds kAnswerTimeOfTheSilent(1);
constexpr std::chrono::milliseconds kHandshakeTime(200);
constexpr int kMostUnasked = 1000; // messages that nobody asked for, during one call

[[noreturn]] void Fail(const std::string& reason) { throw std::runtime_error(reason); }

std::uint64_t MicrosecondsUntil(Clock::time_point end)
{
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
    if (left.count() <= 0)
        host::Checked(-ETIMEDOUT);
    return static_cast<std::uint64_t>(left.count());
}

bool AnyMismatch(const TCTreeBranch& branch)
{
    for (const TCTreeNode& child : branch.GetChildren()) {
        const auto* below = std::get_if<TCTreeBranch>(&child.value);
        if (child.mismatched || (below != nullptr && AnyMismatch(*below)))
            return true;
    }
    return false;
}

} // namespace

// Nobody else's: the library exports the connection only.
class __attribute__((visibility("hidden"))) TVServiceAPIConnection::Channel
{
public:
    explicit Channel(std::string objectPath)
        : m_objectPath(std::move(objectPath)), m_busSetting(host::Setting("TVS_BUS"))
    {
        try {
            Open();
            WaitUntilReady(Clock::now() + kHandshakeTime);
        } catch (const std::exception&) {
            // The first call goes on with the handshake, or opens the bus anew.
        }
    }

    /// The bus as the engineer has named it.
    std::string Bus() const { return m_busSetting.value_or("this process"); }

    /// The reply's values; throws std::exception on any failure, with the reason.
    std::vector<TCTreeNode> Call(const std::string& interfaceName, const std::string& method, short number,
                                 const std::vector<TCTreeNode>& request)
    {
        const std::chrono::seconds answerTime = m_silent ? kAnswerTimeOfTheSilent : kAnswerTime;
        const auto end = Clock::now() + answerTime;
        host::BusMessage reply;
        try {
            if (m_bus && !IsAlive())
                m_bus.reset();
            if (!m_bus)
                Open();
            WaitUntilReady(end);
            reply = Exchange(interfaceName, method, number, request, end);
        } catch (const std::exception& failure) {
            m_bus.reset(); // half an answer may be stuck in it, or much that nobody asked for
            const auto* error = dynamic_cast<const std::system_error*>(&failure);
            if (error == nullptr || error->code().value() != ETIMEDOUT)
                throw;
            m_silent = true;
            Fail("no answer within " + std::to_string(answerTime.count()) + " s");
        }
        m_silent = false;
        if (const sd_bus_error* error = sd_bus_message_get_error(reply.get()))
            Fail(error->message == nullptr ? error->name : error->message);
        if (sd_bus_message_has_signature(reply.get(), "av") <= 0)
            Fail(kOtherForm);
        try {
            return host::ReadValues(reply.get());
        } catch (const std::system_error&) {
            Fail(kOtherForm);
        }
    }

    static constexpr const char* kOtherForm = "a reply of another form";

private:
    void Open()
    {
        m_bus = m_busSetting ? host::OpenServiceBus(*m_busSetting) : m_embedded.Connect();
        // Only answers are wanted: the rest is dropped as it comes.
        host::Checked(sd_bus_add_filter(
            m_bus.get(), nullptr, [](sd_bus_message*, void*, sd_bus_error*) { return 1; }, nullptr));
    }

    // Takes what has come in since the last call, the end of the connection included.
    bool IsAlive()
    {
        int processed = 1;
        for (int i = 0; i < kMostUnasked && processed > 0; ++i)
            processed = sd_bus_process(m_bus.get(), nullptr);
        return processed == 0 && sd_bus_is_open(m_bus.get()) > 0;
    }

    void WaitUntilReady(Clock::time_point end)
    {
        while (host::Checked(sd_bus_is_ready(m_bus.get())) == 0)
            if (host::Checked(sd_bus_process(m_bus.get(), nullptr)) == 0)
                host::Checked(host::WaitForBus(m_bus.get(), MicrosecondsUntil(end)));
    }

    host::BusMessage Exchange(const std::string& interfaceName, const std::string& method, short number,
                              const std::vector<TCTreeNode>& request, Clock::time_point end)
    {
        sd_bus_message* made = nullptr;
        host::Checked(sd_bus_message_new_method_call(m_bus.get(), &made, host::kServiceBusName, m_objectPath.c_str(),
                                                     interfaceName.c_str(), method.c_str()));
        const host::BusMessage call(made);
        host::Checked(sd_bus_message_append_basic(made, 'n', &number));
        host::AppendValues(made, request);
        host::BusMessage reply;
        const auto onReply = [](sd_bus_message* message, void* kept, sd_bus_error*) {
            static_cast<host::BusMessage*>(kept)->reset(sd_bus_message_ref(message));
            return 1;
        };
        sd_bus_slot* slot = nullptr;
        host::Checked(sd_bus_call_async(m_bus.get(), &slot, made, onReply, &reply, UINT64_MAX));
        const std::unique_ptr<sd_bus_slot, sd_bus_slot* (*)(sd_bus_slot*)> pending(slot, sd_bus_slot_unref);
        for (int unasked = 0; !reply;) {
            if (host::Checked(sd_bus_process(m_bus.get(), nullptr)) == 0)
                host::Checked(host::WaitForBus(m_bus.get(), MicrosecondsUntil(end)));
            else if (++unasked > kMostUnasked)
                Fail("a flood of messages that nobody asked for");
        }
        return reply;
    }

    std::string m_objectPath;
    std::optional<std::string> m_busSetting;
    host::EmbeddedService m_embedded; // outlives the bus, whose end it waits for
    host::Bus m_bus;
    bool m_silent = false; // the service has let a call wait in vain, and has answered none since
};

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes values
TVServiceAPIConnection::TVServiceAPIConnection(std::string, std::string objectPath, bool)
{
    host::Host::Instance(); // settings that cannot be used are reported before the first prompt
    m_channel = std::make_unique<Channel>(std::move(objectPath));
}

TVServiceAPIConnection::~TVServiceAPIConnection() = default;

void TCMarshallingHelper::PushValue(EMarshallingDirection direction, int width, void* value)
{
    m_values.push_back({direction, width, value, nullptr});
}

void TCMarshallingHelper::PushMarshalableClass(EMarshallingDirection direction, TIMarshalable* object)
{
    m_values.push_back({direction, 0, nullptr, object});
}

bool TCMarshallingHelperProxy::Run(TVServiceAPIConnection* connection, std::string& interfaceName,
                                   const std::string& method, short number, bool)
{
    DefaultNodeCreator plain;
    TCMarshalableNodeCreator objects;

    const auto makeRequest = [&] {
        std::vector<TCTreeNode> request;
        for (const Value& value : m_values) {
            if (value.direction != MARSHALLING_REQUEST)
                continue;
            const auto node = value.object != nullptr
                                  ? objects.CreateNode(value.object, sizeof *value.object, 0, 1)
                                  : plain.CreateNode(value.plain, static_cast<std::size_t>(value.width), 0, 1);
            if (!node)
                throw std::invalid_argument("a value cannot be sent");
            request.push_back(std::move(*node));
        }
        return request;
    };

    // The form of the whole reply is checked before the first value is written.
    const auto takeReply = [&](std::vector<TCTreeNode>&& reply) {
        std::vector<const Value*> expected;
        for (const Value& value : m_values)
            if (value.direction == MARSHALLING_REPLY)
                expected.push_back(&value);
        if (reply.size() != expected.size())
            return false;
        for (std::size_t i = 0; i < reply.size(); ++i) {
            const bool isBranch = std::holds_alternative<TCTreeBranch>(reply[i].value);
            const auto width = static_cast<std::size_t>(expected[i]->width);
            if (isBranch != (expected[i]->object != nullptr) || (!isBranch && reply[i].GetElementCount(1) != width))
                return false;
        }
        for (std::size_t i = 0; i < reply.size(); ++i) {
            auto* branch = std::get_if<TCTreeBranch>(&reply[i].value);
            if (branch != nullptr && (!expected[i]->object->TreeToClass(*branch) || AnyMismatch(*branch)))
                return false;
        }
        for (std::size_t i = 0; i < reply.size(); ++i) {
            const auto width = static_cast<std::size_t>(expected[i]->width);
            if (expected[i]->object == nullptr && !plain.FillElement(expected[i]->plain, width, width, reply[i]))
                return false;
        }
        return true;
    };

    return host::Operation(
        host::Op::TCMarshallingHelperProxy_Run, host::With(interfaceName, method, number), [&](host::Outputs&) {
            if (connection == nullptr)
                return false;
            TVServiceAPIConnection::Channel& channel = *connection->m_channel;
            try {
                if (takeReply(channel.Call(interfaceName, method, number, makeRequest())))
                    return true;
                Fail(TVServiceAPIConnection::Channel::kOtherForm);
            } catch (const std::exception& error) {
                host::Complain(host::OneLine("TV service on " + channel.Bus() + ": " + error.what()));
                return false;
            }
        });
}
