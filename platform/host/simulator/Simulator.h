// The state of the simulated TV service.
#pragma once

#include "host/call/Operation.h"
#include "host/simulator/Pipeline.h"
#include "tvs-api/TVServiceAPI.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace host
{

struct PipelineState {
    TCPipelineInfo info;
    std::optional<TSTvMode> mode; ///< none: the mode of the scenario
};

struct ZoomWindow {
    TSRectInfo source, destination, main;
    bool started = false;
    bool muted = false;
};

/// A control object that is not released yet.
struct LiveControl {
    std::unique_ptr<ITvsSession> object;
    Op factory;
    std::optional<Pipeline> pipeline;
};

/// State that outlives the control objects that changed it.
struct SimulatorState {
    std::map<Pipeline, PipelineState> pipelines;
    std::map<int, ZoomWindow> zoomWindows;
    int lastZoomWindow = 0;
    std::map<std::pair<EStateChange, std::string>, bool> registrations; ///< true: the application has notified
    std::unordered_map<const ITvsSession*, LiveControl> controls;
};

/// Created on first use and never destroyed. The state is used only in the work of a Call.
class Simulator : public SimulatorState
{
public:
    static Simulator& Instance();

    /// Resets the state to that of the current scenario.
    void Restart();

    /// Runs a platform call whose work uses the state. Only one call runs at a time.
    template <class... Arguments, class Work>
    auto Call(Op operation, const std::tuple<Arguments...>& arguments, Work&& work)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return Operation(operation, arguments, std::forward<Work>(work));
    }

    /// The name of the interface of a control object; "unknown" if it is not one.
    std::string InterfaceOf(const ITvsSession* control);

    const Scenario& Tv() const { return Host::Instance().scenario; }
    /// The first service with that id, or null.
    const ScenarioService* FindService(unsigned long long id) const;
    /// Whether the service meets all conditions.
    static bool Matches(const ScenarioService& service, const TCCriteriaHelper& criteria);
    /// Fills in the fields that the criteria fetches.
    static void Fetch(const ScenarioService& service, const TCCriteriaHelper& criteria, TCServiceData& data);

    TSTvMode Mode(const Pipeline& pipeline) const;
    /// Stores the source and raises the signals of the tuner.
    void SetSource(const Pipeline& pipeline, ESource source, std::optional<unsigned long long> serviceId);

private:
    Simulator() { Restart(); }

    std::mutex m_mutex;
    std::unordered_map<unsigned long long, const ScenarioService*> m_services;
};

} // namespace host
