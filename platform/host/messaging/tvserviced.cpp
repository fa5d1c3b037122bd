// The TV service as a separate process, on the bus that TVS_BUS names. It ends when the bus ends.
#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"
#include "host/call/Text.h"
#include "host/messaging/Transport.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace
{

constexpr const char* kHelp = "Usage: TVS_BUS=BUS tvserviced\n"
                              "Serves the TV service's debug menu, com.kavrin.TVService, until the bus ends.\n"
                              "BUS is session, system or a D-Bus address.\n"
                              "  --help     prints this help\n"
                              "  --version  prints the version\n";

constexpr std::chrono::seconds kBusTimeout(10); // for the handshake, and for each call to the bus

// Handles an option and returns the exit status. `next` is the argument after it, or null.
int RunOption(std::string_view argument, const char* next)
{
    const bool known = argument == "--help" || argument == "--version";
    if (!known || next != nullptr) {
        const std::string unknown(known ? next : argument);
        host::PrintError("tvserviced: unknown argument '" + host::OneLine(unknown) + "'; try tvserviced --help");
        return 2;
    }
    std::fputs(argument == "--help" ? kHelp : "tvserviced " TVSERVICED_VERSION "\n", stdout);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

host::Bus OpenBus(const std::string& setting)
{
    host::BusTransport transport(setting);
    const auto end = transport.Now() + kBusTimeout;
    host::Bus bus = transport.Open(end);
    host::WaitUntilReady(transport, bus.get(), end);
    host::Checked(sd_bus_set_method_call_timeout(bus.get(), std::chrono::microseconds(kBusTimeout).count()));
    return bus;
}

} // namespace

int main(int argc, char** argv)
{
    host::KeepStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN); // the reader of standard output may be gone
    if (argc > 1)
        return RunOption(argv[1], argv[2]);
    const auto setting = host::Setting("TVS_BUS");
    if (!setting) {
        host::PrintError("tvserviced: TVS_BUS is not set: give session, system or a D-Bus address");
        return EXIT_FAILURE;
    }
    try {
        const host::Bus bus = host::Step(host::OpenStepOf(setting), [&] { return OpenBus(*setting); });
        const int owned = sd_bus_request_name(bus.get(), host::kServiceBusName, 0);
        if (owned == -EEXIST)
            throw std::runtime_error(std::string(host::kServiceBusName) + " has an owner already");
        host::Step("cannot own com.kavrin.TVService", [&] { return host::Checked(owned); });
        std::printf("tvserviced: serving %s on %s\n", host::kServiceBusName, setting->c_str());
        std::fflush(stdout);
        host::DebugPrintService().Serve(bus.get());
        host::PrintError("tvserviced: the bus has ended");
    } catch (const std::exception& error) {
        host::PrintError("tvserviced: " + *setting + ": " + error.what());
    }
    return EXIT_FAILURE;
}
