#include "support/TestBus.h"

#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace
{

constexpr const char* kName = "com.kavrin.TVService";

} // namespace

TestBus::TestBus()
{
    m_daemon.Start(
        {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address", "--address=" + m_address});
    m_daemon.WaitFor("\n");
}

void TestBus::StartService()
{
    m_service.Start({SERVICE_PATH}, {{"TVS_BUS", m_address}});
    m_service.WaitFor("\n");
}

std::shared_ptr<sd_bus> TestBus::Connect() const
{
    sd_bus* bus = nullptr;
    if (sd_bus_new(&bus) < 0 || sd_bus_set_address(bus, m_address.c_str()) < 0 || sd_bus_set_bus_client(bus, 1) < 0 ||
        sd_bus_start(bus) < 0)
        throw std::runtime_error("no connection to the test bus");
    return {bus, sd_bus_close_unref};
}

FakeService::FakeService(const TestBus& bus, std::function<int(sd_bus_message*)> fill) : m_fill(std::move(fill))
{
    const auto connection = bus.Connect();
    if (sd_bus_add_filter(connection.get(), nullptr, OnMessage, this) < 0 ||
        sd_bus_request_name(connection.get(), kName, 0) < 0 || pipe2(m_stop, O_CLOEXEC) != 0)
        throw std::runtime_error("no fake service");
    m_thread = std::thread([this, connection] {
        for (;;) {
            const int processed = sd_bus_process(connection.get(), nullptr);
            pollfd events[] = {{sd_bus_get_fd(connection.get()), POLLIN, 0}, {m_stop[0], POLLIN, 0}};
            if (processed < 0 || (processed == 0 && (poll(events, 2, -1) < 0 || events[1].revents != 0)))
                return;
        }
    });
}

FakeService::~FakeService()
{
    close(m_stop[1]);
    m_thread.join();
    close(m_stop[0]);
}

int FakeService::OnMessage(sd_bus_message* message, void* self, sd_bus_error*)
{
    if (sd_bus_message_is_method_call(message, "com.kavrin.IDebugPrintControl", nullptr) <= 0)
        return 0;
    sd_bus_message* reply = nullptr;
    if (sd_bus_message_new_method_return(message, &reply) >= 0 && static_cast<FakeService*>(self)->m_fill(reply) >= 0)
        sd_bus_send(nullptr, reply, nullptr);
    sd_bus_message_unref(reply);
    return 1;
}
