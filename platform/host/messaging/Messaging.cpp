// Remote calls over sd-bus, on the calling thread.
#include "tvs-api-internal/Messaging.h"

#include "host/call/Operation.h"
#include "host/call/Settings.h"
#include "host/messaging/EmbeddedService.h"

#include <cerrno>
#include <chrono>
#include <optional>
#include <system_error>

namespace
{

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kAnswerTime(10);
constexpr int kMostUnasked = 1000; // messages that nobody asked for, taken before one call

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
        } catch (const std::exception&) {
            m_bus.reset(); // the first call tries again
        }
    }

    // The reply's values; throws std::exception on any failure.
    std::vector<TCTreeNode> Call(const std::string& interfaceName, const std::string& method, short number,
                                 const std::vector<TCTreeNode>& request)
    {
        const auto end = Clock::now() + kAnswerTime;
        Connect(end);

        sd_bus_message* made = nullptr;
        host::Checked(sd_bus_message_new_method_call(m_bus.get(), &made, host::kServiceBusName, m_objectPath.c_str(),
                                                     interfaceName.c_str(), method.c_str()));
        const host::BusMessage call(made);
        host::Checked(sd_bus_message_append_basic(made, 'n', &number));
        host::AppendValues(made, request);
        sd_bus_message* received = nullptr;
        const int result = sd_bus_call(m_bus.get(), made, MicrosecondsUntil(end), nullptr, &received);
        if (result == -ETIMEDOUT)
            m_bus.reset(); // half an answer may be stuck in it
        host::Checked(result);
        const host::BusMessage reply(received);
        if (host::Checked(sd_bus_message_has_signature(received, "av")) == 0)
            host::Checked(-EBADMSG);
        return host::ReadValues(received);
    }

private:
    // A bus that is ready by then, or none.
    void Connect(Clock::time_point end)
    {
        try {
            if (m_bus && !IsAlive())
                m_bus.reset();
            if (!m_bus)
                Open();
            WaitUntilReady(end);
        } catch (const std::exception&) {
            m_bus.reset();
            throw;
        }
    }

    void Open() { m_bus = m_busSetting ? host::OpenServiceBus(*m_busSetting) : m_embedded.Connect(); }

    // Takes what has come in since the last call, the end of the connection included.
    bool IsAlive()
    {
        int processed = 1;
        for (int i = 0; i < kMostUnasked && processed > 0; ++i)
            processed = sd_bus_process(m_bus.get(), nullptr);
        return processed >= 0 && sd_bus_is_open(m_bus.get()) > 0;
    }

    void WaitUntilReady(Clock::time_point end)
    {
        while (host::Checked(sd_bus_is_ready(m_bus.get())) == 0)
            if (host::Checked(sd_bus_process(m_bus.get(), nullptr)) == 0)
                host::Checked(sd_bus_wait(m_bus.get(), MicrosecondsUntil(end)));
    }

    std::string m_objectPath;
    std::optional<std::string> m_busSetting;
    host::EmbeddedService m_embedded; // outlives the bus, whose end it waits for
    host::Bus m_bus;
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
            try {
                return connection != nullptr &&
                       takeReply(connection->m_channel->Call(interfaceName, method, number, makeRequest()));
            } catch (const std::exception&) {
                return false;
            }
        });
}
