#include "host/call/Host.h"

#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"

#include <atomic>
#include <exception>
#include <memory>

namespace host
{
namespace
{

Host* SetUp()
{
    KeepStandardDescriptors();
    auto host = std::make_unique<Host>();
    try {
        const auto scenario = Setting("TVS_SCENARIO");
        host->scenario = scenario ? LoadScenario(*scenario) : BuiltInScenario();
        if (const auto trace = Setting("TVS_TRACE"))
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
