// Where the TV service is found on D-Bus.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <string>

namespace host
{

constexpr const char* kServiceBusName = "com.kavrin.TVService";
constexpr const char* kServiceObjectPath = "/com/kavrin/TVService/SignalObject";
constexpr const char* kDebugPrintInterface = "com.kavrin.IDebugPrintControl";

/// Opens the bus that `TVS_BUS` names: `session`, `system` or a D-Bus address. Returns before the bus has answered.
/// Throws std::system_error.
Bus OpenServiceBus(const std::string& setting);

} // namespace host
