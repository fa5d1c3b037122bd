#include "host/call/Host.h"

#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace host
{
namespace
{

Host* SetUp()
{
    KeepStandardDescriptors();
    auto host = std::make_unique<Host>();
    try {
        const auto scenario = Setting("TVS_SCENARIO"), trace = Setting("TVS_TRACE");
        std::error_code ignored; // the trace may not exist yet
        if (scenario && trace && std::filesystem::equivalent(*scenario, *trace, ignored))
            throw std::runtime_error("trace " + *trace + ": it would overwrite the scenario " + *scenario);
        host->scenario = scenario ? LoadScenario(*scenario) : BuiltInScenario();
        if (trace)
            host->trace.Open(*trace);
    } catch (const std::exception& error) {
        Fatal(error.what());
    }
    return host.release();
}

std::atomic<Host*>& Current()
{
    static std::atomic<Host*> current = SetUp();
    return current;
}

} // namespace

Host& Host::Instance() { return *Current(); }
Host& Host::Exchange(Host& host) { return *Current().exchange(&host); }

} // namespace host
