#include "Environment.h"
#include "Operation.h"

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
        Refuse(error.what());
    }
    return host.release();
}

} // namespace

Host& Host::Instance()
{
    static Host* const instance = SetUp();
    return *instance;
}

} // namespace host
