// A scenario: the state and services of the simulated TV service, and the faults that it injects.
#pragma once

#include "host/call/OperationNames.h"
#include "tvs-api/Types.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host
{

/// The field that holds the service id, the only one of 64 bits.
constexpr int kServiceIdField = 12;

/// A service of the database. A tag without a value is a field that has no data.
struct ScenarioService {
    std::map<int, std::optional<std::uint64_t>> tags;
    std::optional<std::string> title; ///< UTF-8; none: no programme; empty: a programme without a title
};

/// A fault of one call. Without a result and an exception the call does its work, after the delay if there is one.
struct Fault {
    std::optional<int> result;
    bool object = false; ///< a factory returns the result, but creates its object, too
    std::optional<std::string> thrown;
    std::optional<std::chrono::milliseconds> delay;
};

/// The faults of one operation.
struct Faults {
    Fault always;
    std::map<unsigned, Fault> byCall; ///< by the number of the call, from 1; overrides `always`
};

/// Number of data bytes of a signal.
constexpr std::size_t kSignalBytes = sizeof(TSSignalData::bytes);

struct Scenario {
#define KEY(group, key, type, member, value) type member = value;
#include "host/call/ScenarioKeys.def"
#undef KEY
    std::map<std::string, std::int32_t> vconf;
    std::vector<ScenarioService> services;
    std::array<Faults, kOperationCount> faults; ///< by operation
    std::map<int, TSSignalData> signals;        ///< data by signal type; other types carry zeros

    /// The fault of the call with that number; the first call of the operation is 1.
    Fault FaultOf(Op operation, unsigned call) const;
};

/// Reads a scenario from the text of a GLib key file. Throws std::runtime_error; the message names `path` and the
/// invalid group, key or value.
Scenario ParseScenario(const std::string& path, const std::string& text);

/// Reads a scenario from a regular file of at most 64 MiB. Throws the same as ParseScenario.
Scenario LoadScenario(const std::string& path);

/// The default scenario and its text.
Scenario BuiltInScenario();
extern const char* const kBuiltInScenario;

} // namespace host
