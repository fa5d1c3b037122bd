// How every platform call runs: the scenario's fault or the work, then its line in the trace.
#pragma once

#include "Environment.h"
#include "OperationNames.h"
#include "Scenario.h"
#include "Trace.h"

#include <cassert>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace host
{

/// What the host platform is set up with; made on first use and never destroyed, because static objects and signal
/// threads may use it before `main` and while the process ends.
struct Host {
    Scenario scenario;
    Trace trace;

    /// Sets up on the first call; ends the process with status 2 if the settings cannot be used.
    static Host& Instance();
};

/// The output arguments that a call wrote, in their order.
class Outputs
{
public:
    template <class T, class Value> void Write(T& variable, Value&& value)
    {
        variable = std::forward<Value>(value);
        if (Host::Instance().trace.IsOpen())
            m_shown += ' ' + Show(variable);
    }
    const std::string& Shown() const { return m_shown; }

private:
    std::string m_shown;
};

/// Runs `work(outputs)` as the call `name` with those arguments and returns its result.
template <class... Arguments, class Work>
auto Operation(const char* name, const std::tuple<Arguments...>& arguments, Work&& work)
{
    assert(IsOperation(name));
    using Result = std::invoke_result_t<Work, Outputs&>;
    Host& host = Host::Instance();
    const auto trace = [&](const std::string& outcome) {
        if (!host.trace.IsOpen())
            return;
        std::string shown;
        std::apply(
            [&](const auto&... argument) { ((shown += shown.empty() ? "" : ", ", shown += Show(argument)), ...); },
            arguments);
        host.trace.Write(name + ('(' + shown) + ')' + outcome);
    };

    static const Fault& none = *new Fault; // never destroyed, as the host itself
    const auto found = host.scenario.faults.find(name);
    const Fault& fault = found == host.scenario.faults.end() ? none : found->second;
    if (fault.thrown) {
        trace(" ! " + OneLine(*fault.thrown));
        throw std::runtime_error(*fault.thrown);
    }

    Outputs outputs;
    const bool works = !fault.result || fault.object;
    if constexpr (std::is_void_v<Result>) {
        if (works)
            work(outputs);
        trace("");
    } else {
        Result result{};
        if (works)
            result = work(outputs);
        if (fault.result)
            result = static_cast<Result>(*fault.result);
        trace(" = " + Show(result) + outputs.Shown());
        return result;
    }
}

/// The arguments of a call as Operation takes them.
template <class... Arguments> std::tuple<const Arguments&...> With(const Arguments&... arguments)
{
    return {arguments...};
}

} // namespace host
