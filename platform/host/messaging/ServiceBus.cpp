#include "host/messaging/ServiceBus.h"

#include <cerrno>

namespace host
{

Bus OpenServiceBus(const std::string& setting)
{
    sd_bus* opened = nullptr;
    if (setting == "session") {
        Checked(sd_bus_open_user(&opened));
        return Bus(opened);
    }
    if (setting == "system") {
        Checked(sd_bus_open_system(&opened));
        return Bus(opened);
    }
    Checked(sd_bus_new(&opened));
    Bus bus(opened);
    Checked(sd_bus_set_address(opened, setting.c_str()));
    Checked(sd_bus_set_bus_client(opened, 1));
    Checked(sd_bus_start(opened));
    return bus;
}

int WaitForBus(sd_bus* bus, std::uint64_t microseconds)
{
    const int result = sd_bus_wait(bus, microseconds);
    return result == -EINTR ? 0 : result;
}

} // namespace host
