// The television that the simulator plays, and the faults it plays, read from a GLib key file.
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

/// The one field of a service that has 64 bits.
constexpr int kServiceIdField = 12;

/// A service of the database. A tag without a value is a field without data.
struct ScenarioService {
    std::map<int, std::optional<std::uint64_t>> tags;
    std::optional<std::string> title; ///< UTF-8; none: no programme, empty: a programme without a title
};

/// What an operation does instead of its work, and how long it waits before that.
struct Fault {
    std::optional<int> result;
    bool object = false; ///< a factory with a result fills in its object all the same
    std::optional<std::string> thrown;
    std::optional<std::chrono::milliseconds> delay;
};

/// The faults of one operation.
struct Faults {
    Fault always;
    std::map<unsigned, Fault> byCall; ///< counted from 1; these beat the other
};

/// Signals carry that many bytes.
constexpr std::size_t kSignalBytes = sizeof(TSSignalData::bytes);

struct Scenario {
    std::int32_t antennaMode = 0;
    std::int32_t serviceMode = 0;
    bool captionExist = false;
    bool pidSetStatus = false;
    bool zoomAvailable = true;
    std::int32_t zoomSharingType = 0;
    std::map<std::string, std::int32_t> vconf;
    std::optional<std::uint64_t> latestRFCable, latestRFAir, latestVelunaCable, latestVelunaAir;
    std::vector<ScenarioService> services;
    std::array<Faults, kOperationCount> faults; ///< by operation
    std::map<int, TSSignalData> signals;        ///< what signals of a type carry, where that is given

    /// Of the operation's call with that number, counted from 1.
    Fault FaultOf(Op operation, unsigned call) const;
};

/// Reads a scenario from the text of a key file; `path` names it in errors. Throws as LoadScenario.
Scenario ParseScenario(const std::string& path, const std::string& text);

/// Reads the file. Throws std::runtime_error with one line that names file, group, key and
/// value of what is wrong.
Scenario LoadScenario(const std::string& path);

/// The television that is played when no file is given, and its text.
Scenario BuiltInScenario();
extern const char* const kBuiltInScenario;

} // namespace host
