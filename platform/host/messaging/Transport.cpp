#include "host/messaging/Transport.h"

#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace host
{
namespace
{

// libsystemd skips an address with an unknown transport, and reports "connection refused" when no other is left.
void RequireKnownTransport(const std::string& addresses)
{
    std::istringstream stream(addresses);
    for (std::string address; std::getline(stream, address, ';');)
        for (const char* transport : {"unix:", "unixexec:", "tcp:", "x-machine-unix:"})
            if (address.rfind(transport, 0) == 0)
                return;
    throw std::invalid_argument("not session, system or a valid D-Bus address");
}

Bus OpenBus(const std::string& setting)
{
    if (setting == "session" || setting == "system") {
        sd_bus* opened = nullptr;
        Checked(setting == "session" ? sd_bus_open_user(&opened) : sd_bus_open_system(&opened));
        return Bus(opened);
    }
    RequireKnownTransport(setting);
    Bus bus = NewBus();
    Checked(sd_bus_set_address(bus.get(), setting.c_str()));
    Checked(sd_bus_set_bus_client(bus.get(), true));
    Checked(sd_bus_start(bus.get()));
    return bus;
}

// libsystemd blocks while it looks up a host name, so such an address is opened on a thread. No other address is: the
// program of a unixexec: address would end with the thread that started it.
bool HasHostName(const std::string& setting)
{
    const char* const address = setting == "session"  ? std::getenv("DBUS_SESSION_BUS_ADDRESS")
                                : setting == "system" ? std::getenv("DBUS_SYSTEM_BUS_ADDRESS")
                                                      : setting.c_str();
    return address != nullptr && std::string(address).find("tcp:") != std::string::npos;
}

} // namespace

Bus OpenOnThread(std::future<Bus>& opening, std::function<Bus()> open, Clock::time_point end)
{
    if (!opening.valid()) {
        std::packaged_task<Bus()> task(std::move(open));
        opening = task.get_future();
        std::thread(std::move(task)).detach(); // the lookup of a host name cannot be cancelled
    }
    if (opening.wait_until(end) != std::future_status::ready)
        Checked(-ETIMEDOUT);
    return opening.get();
}

Bus BusTransport::Open(Clock::time_point end)
{
    if (!m_setting)
        return m_embedded.Connect();
    const auto open = [setting = *m_setting] { return OpenBus(setting); };
    return HasHostName(*m_setting) ? OpenOnThread(m_opening, open, end) : open();
}

void BusTransport::Wait(sd_bus* bus, Clock::time_point end)
{
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now()).count();
    Checked(left <= 0 ? -ETIMEDOUT : WaitForBus(bus, static_cast<std::uint64_t>(left)));
}

BusSlot BusTransport::Send(sd_bus* bus, sd_bus_message* call, BusMessage& reply)
{
    const auto onReply = [](sd_bus_message* message, void* kept, sd_bus_error*) {
        static_cast<BusMessage*>(kept)->reset(sd_bus_message_ref(message));
        return 1;
    };
    sd_bus_slot* slot = nullptr;
    Checked(sd_bus_call_async(bus, &slot, call, onReply, &reply, UINT64_MAX));
    return BusSlot(slot);
}

void HandleNext(Transport& transport, sd_bus* bus, Clock::time_point end)
{
    if (transport.Now() >= end)
        Checked(-ETIMEDOUT);
    if (!transport.Process(bus))
        transport.Wait(bus, end);
}

void WaitUntilReady(Transport& transport, sd_bus* bus, Clock::time_point end)
{
    while (Checked(sd_bus_is_ready(bus)) == 0)
        HandleNext(transport, bus, end);
}

const char* OpenStepOf(const std::optional<std::string>& setting)
{
    return !setting                ? "cannot start the embedded TV service"
           : *setting == "session" ? "cannot open the session bus"
           : *setting == "system"  ? "cannot open the system bus"
                                   : "cannot open the bus";
}

} // namespace host
