#include "host/messaging/Channel.h"

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace host
{
namespace
{

constexpr std::chrono::seconds kCallTimeout(10);
constexpr std::chrono::seconds kUnresponsiveTimeout(1);
constexpr std::chrono::milliseconds kOpenTimeout(200); // delays the first prompt

} // namespace

Channel::Channel(std::string objectPath, const char* openStep, std::unique_ptr<Transport> transport)
    : m_objectPath(std::move(objectPath)), m_openStep(openStep), m_transport(std::move(transport))
{
    try {
        m_OpenBy(m_transport->Now() + kOpenTimeout);
    } catch (const std::exception&) {
        // The first call continues the handshake, or opens the bus again and reports the error.
    }
}

std::vector<TCTreeNode> Channel::Call(const std::string& interfaceName, const std::string& method, short number,
                                      const std::vector<TCTreeNode>& request)
{
    const std::chrono::seconds timeout = m_unresponsive ? kUnresponsiveTimeout : kCallTimeout;
    const auto end = m_transport->Now() + timeout;
    BusMessage reply;
    try {
        Step(m_openStep, [&] { m_OpenBy(end); });
        reply = Step("the call failed", [&] { return m_ReplyBy(end, interfaceName, method, number, request); });
    } catch (const std::exception& failure) {
        m_bus.reset(); // part of a reply may be in its buffer
        const auto* error = dynamic_cast<const std::system_error*>(&failure);
        if (error == nullptr || error->code().value() != ETIMEDOUT)
            throw;
        m_unresponsive = true;
        throw std::runtime_error("no answer within " + std::to_string(timeout.count()) + " s");
    }
    m_unresponsive = false;
    if (const sd_bus_error* error = sd_bus_message_get_error(reply.get()))
        throw std::runtime_error(std::string("the call failed: ") + (error->message ? error->message : error->name));
    if (sd_bus_message_has_signature(reply.get(), "av") <= 0)
        FailMalformed();
    try {
        return ReadValues(reply.get());
    } catch (const std::system_error&) {
        FailMalformed();
    }
}

void Channel::FailMalformed() { throw std::runtime_error("the call failed: malformed reply"); }

void Channel::m_OpenBy(Clock::time_point end)
{
    if (m_bus && !m_IsOpenAt(end))
        m_bus.reset();
    if (!m_bus) {
        m_bus = m_transport->Open(end);
        // Drops all messages that are not replies to calls.
        Checked(sd_bus_add_filter(
            m_bus.get(), nullptr, [](sd_bus_message*, void*, sd_bus_error*) { return 1; }, nullptr));
    }
    WaitUntilReady(*m_transport, m_bus.get(), end);
}

// Handles the messages that arrived since the last call; one of them may be the end of the connection.
bool Channel::m_IsOpenAt(Clock::time_point end)
{
    try {
        while (m_transport->Process(m_bus.get()) && m_transport->Now() < end)
            ;
    } catch (const std::system_error&) {
        return false;
    }
    return sd_bus_is_open(m_bus.get()) > 0;
}

BusMessage Channel::m_ReplyBy(Clock::time_point end, const std::string& interfaceName, const std::string& method,
                              short number, const std::vector<TCTreeNode>& request)
{
    sd_bus_message* made = nullptr;
    Checked(sd_bus_message_new_method_call(m_bus.get(), &made, kServiceBusName, m_objectPath.c_str(),
                                           interfaceName.c_str(), method.c_str()));
    const BusMessage call(made);
    Checked(sd_bus_message_append_basic(made, 'n', &number));
    AppendValues(made, request);
    BusMessage reply;
    const BusSlot slot = m_transport->Send(m_bus.get(), made, reply);
    while (!reply)
        HandleNext(*m_transport, m_bus.get(), end);
    return reply;
}

} // namespace host
