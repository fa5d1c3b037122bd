// Connections and remote calls of the platform API.
#include "tvs-api-internal/Messaging.h"

#include "host/call/Operation.h"
#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"
#include "host/messaging/Channel.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace
{

bool AnyMismatch(const TCTreeBranch& branch)
{
    const auto& children = branch.GetChildren();
    return std::any_of(children.begin(), children.end(), [](const TCTreeNode& child) {
        const auto* below = std::get_if<TCTreeBranch>(&child.value);
        return child.mismatched || (below != nullptr && AnyMismatch(*below));
    });
}

template <class Values> std::vector<TCTreeNode> MakeRequest(const Values& values)
{
    DefaultNodeCreator plain;
    TCMarshalableNodeCreator objects;
    std::vector<TCTreeNode> request;
    for (const auto& value : values) {
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
}

// Copies the reply to the caller's variables; returns false if it is malformed. Checks all types before it copies.
template <class Values> bool TakeReply(const Values& values, std::vector<TCTreeNode>&& reply)
{
    DefaultNodeCreator plain;
    std::vector<typename Values::value_type> expected;
    std::copy_if(values.begin(), values.end(), std::back_inserter(expected),
                 [](const auto& value) { return value.direction == MARSHALLING_REPLY; });
    if (reply.size() != expected.size())
        return false;
    for (std::size_t i = 0; i < reply.size(); ++i) {
        const bool isBranch = std::holds_alternative<TCTreeBranch>(reply[i].value);
        const auto width = static_cast<std::size_t>(expected[i].width);
        if (isBranch != (expected[i].object != nullptr) || (!isBranch && reply[i].GetElementCount(1) != width))
            return false;
    }
    for (std::size_t i = 0; i < reply.size(); ++i) {
        auto* branch = std::get_if<TCTreeBranch>(&reply[i].value);
        if (branch != nullptr && (!expected[i].object->TreeToClass(*branch) || AnyMismatch(*branch)))
            return false;
    }
    for (std::size_t i = 0; i < reply.size(); ++i) {
        const auto width = static_cast<std::size_t>(expected[i].width);
        if (expected[i].object == nullptr && !plain.FillElement(expected[i].plain, width, width, reply[i]))
            return false;
    }
    return true;
}

} // namespace

// Hidden: the library exports TVServiceAPIConnection, but not this class.
class __attribute__((visibility("hidden"))) TVServiceAPIConnection::Channel
{
public:
    explicit Channel(std::string objectPath)
        : busSetting(host::Setting("TVS_BUS")),
          channel(std::move(objectPath), host::OpenStepOf(busSetting), std::make_unique<host::BusTransport>(busSetting))
    {
    }

    std::optional<std::string> busSetting;
    host::Channel channel;
};

// NOLINTNEXTLINE(performance-unnecessary-value-param): the SDK passes it by value
TVServiceAPIConnection::TVServiceAPIConnection(std::string, std::string objectPath, bool)
{
    host::Host::Instance(); // reports invalid settings before the first prompt
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
    return host::Operation(
        host::Op::TCMarshallingHelperProxy_Run, host::With(interfaceName, method, number), [&](host::Outputs&) {
            if (connection == nullptr)
                return false;
            auto& [busSetting, channel] = *connection->m_channel;
            try {
                if (!TakeReply(m_values, channel.Call(interfaceName, method, number, MakeRequest(m_values))))
                    host::Channel::FailMalformed();
                return true;
            } catch (const std::exception& error) {
                const std::string bus = busSetting.value_or("this process");
                host::PrintError(host::OneLine("TV service on " + bus + ": " + error.what()));
                return false;
            }
        });
}
