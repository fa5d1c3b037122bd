// Operation runs one platform call: its delay, its fault or its work, and its line in the trace.
#pragma once

#include "host/call/Host.h"
#include "host/call/OperationNames.h"
#include "host/call/Text.h"

#include <stdexcept>
#include <string>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>

namespace host
{

/// Writes the output arguments of a call, and keeps their text for the trace.
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

/// Runs `work(outputs)`, traces it as the call `operation(arguments)` and returns its result. If the scenario has
/// a fault for this call, returns the result of the fault or throws std::runtime_error instead. Any thread.
template <class... Arguments, class Work>
auto Operation(Op operation, const std::tuple<Arguments...>& arguments, Work&& work)
{
    using Result = std::invoke_result_t<Work, Outputs&>;
    Host& host = Host::Instance();
    const auto trace = [&](const std::string& outcome) {
        if (!host.trace.IsOpen())
            return;
        std::string shown;
        std::apply(
            [&](const auto&... argument) { ((shown += shown.empty() ? "" : ", ", shown += Show(argument)), ...); },
            arguments);
        host.trace.Write(NameOf(operation) + ("(" + shown) + ")" + outcome);
    };

    const Fault fault = host.scenario.FaultOf(operation, ++host.calls[static_cast<std::size_t>(operation)]);
    if (fault.delay)
        std::this_thread::sleep_for(*fault.delay);
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

/// References to the arguments of a call, for Operation.
template <class... Arguments> std::tuple<const Arguments&...> With(const Arguments&... arguments)
{
    return {arguments...};
}

} // namespace host
