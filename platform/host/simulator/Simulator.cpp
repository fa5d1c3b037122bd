#include "host/simulator/Simulator.h"

#include "host/simulator/Signals.h"

#include <algorithm>

namespace host
{
namespace
{

bool Has(const ScenarioService& service, int field, int value)
{
    const auto found = service.tags.find(field);
    if (found == service.tags.end() || !found->second)
        return false;
    if (field == kServiceIdField)
        return *found->second == static_cast<std::uint64_t>(value);
    return static_cast<std::uint32_t>(*found->second) == static_cast<std::uint32_t>(value);
}

} // namespace

Simulator& Simulator::Instance()
{
    static Simulator& simulator = *new Simulator;
    return simulator;
}

void Simulator::Restart()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    static_cast<SimulatorState&>(*this) = {};
    m_services.clear();
    for (const ScenarioService& service : Tv().services) {
        const auto id = service.tags.find(kServiceIdField);
        if (id != service.tags.end() && id->second)
            m_services.emplace(*id->second, &service);
    }
}

std::string Simulator::InterfaceOf(const ITvsSession* control)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = controls.find(control);
    if (found == controls.end())
        return "unknown";
    const std::string factory = NameOf(found->second.factory), create = "::Create";
    return "I" + factory.substr(factory.find(create) + create.size());
}

const ScenarioService* Simulator::FindService(unsigned long long id) const
{
    const auto found = m_services.find(id);
    return found == m_services.end() ? nullptr : found->second;
}

bool Simulator::Matches(const ScenarioService& service, const TCCriteriaHelper& criteria)
{
    using Step = TCCriteriaHelper::Step;
    const auto& steps = criteria.GetSteps();
    return std::all_of(steps.begin(), steps.end(), [&](const Step& step) {
        return (step.kind != Step::WHERE || Has(service, step.field, step.value)) &&
               (step.kind != Step::WHERE_NOT || !Has(service, step.field, step.value));
    });
}

void Simulator::Fetch(const ScenarioService& service, const TCCriteriaHelper& criteria, TCServiceData& data)
{
    data = TCServiceData();
    for (const auto& step : criteria.GetSteps()) {
        const auto found =
            step.kind == TCCriteriaHelper::Step::FETCH ? service.tags.find(step.field) : service.tags.end();
        if (found == service.tags.end())
            continue;
        const auto& value = found->second;
        if (!value)
            data.AddTag(step.field, TCTag());
        else if (step.field == kServiceIdField)
            data.AddTag(step.field, TCTag(*value));
        else
            data.AddTag(step.field, TCTag(static_cast<std::uint32_t>(*value)));
    }
}

TSTvMode Simulator::Mode(const Pipeline& pipeline) const
{
    const auto found = pipelines.find(pipeline);
    if (found != pipelines.end() && found->second.mode)
        return *found->second.mode;
    return {static_cast<EAntennaMode>(Tv().antennaMode), static_cast<EServiceMode>(Tv().serviceMode)};
}

void Simulator::SetSource(const Pipeline& pipeline, ESource source, std::optional<unsigned long long> serviceId)
{
    TCPipelineInfo& info = pipelines[pipeline].info;
    info.source = source;
    info.serviceId = serviceId.value_or(INVALID_SERVICE_ID);
    if (source != SOURCE_TV)
        return;
    const bool locks = !serviceId || FindService(*serviceId) != nullptr;
    SignalHub& hub = SignalHub::Instance();
    hub.Raise(SIGNAL_TUNE_START, pipeline, {});
    hub.Raise(locks ? SIGNAL_TUNE_SUCCESS : SIGNAL_TUNER_LOCK_FAIL, pipeline, {});
}

} // namespace host
