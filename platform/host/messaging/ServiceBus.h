// Where the TV service is found on D-Bus.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <cstdint>
#include <string>

namespace host
{

constexpr const char* kServiceBusName = "com.kavrin.TVService";
constexpr const char* kServiceObjectPath = "/com/kavrin/TVService/SignalObject";
constexpr const char* kDebugPrintInterface = "com.kavrin.IDebugPrintControl";

/// Opens the bus that `TVS_BUS` names: `session`, `system` or a D-Bus address. Returns before the bus has answered.
/// Throws std::system_error.
Bus OpenServiceBus(const std::string& setting);

/// Waits until the bus has something to do, for that many microseconds at most; below 0 is an error, as sd-bus has it. A
/// signal that strikes the process is none, whichever thread takes it.
int WaitForBus(sd_bus* bus, std::uint64_t microseconds);

} // namespace host
