// The TV service as a process of its own, on the bus that TVS_BUS names. It ends when that bus ends.
#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"
#include "host/messaging/DebugPrintService.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

int main()
{
    host::KeepStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN); // whoever reads our one line may go
    const auto setting = host::Setting("TVS_BUS");
    if (!setting) {
        host::Complain("tvserviced: TVS_BUS is not set: give session, system or a D-Bus address");
        return EXIT_FAILURE;
    }
    try {
        const host::Bus bus = host::OpenServiceBus(*setting);
        const int owned = sd_bus_request_name(bus.get(), host::kServiceBusName, 0);
        if (owned == -EEXIST)
            throw std::runtime_error(std::string(host::kServiceBusName) + " has an owner already");
        host::Checked(owned);
        std::printf("tvserviced: serving %s on %s\n", host::kServiceBusName, setting->c_str());
        std::fflush(stdout);
        host::DebugPrintService().Serve(bus.get());
        host::Complain("tvserviced: the bus has ended");
    } catch (const std::exception& error) {
        host::Complain("tvserviced: " + *setting + ": " + error.what());
    }
    return EXIT_FAILURE;
}
