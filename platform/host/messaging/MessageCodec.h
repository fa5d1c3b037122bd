// Trees in D-Bus messages: a plain value is a variant by its width, a branch a variant with `a(nv)`.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <cstdint>
#include <memory>
#include <systemd/sd-bus.h>
#include <vector>

namespace host
{

constexpr const char* kServiceBusName = "com.kavrin.TVService";
constexpr const char* kServiceObjectPath = "/com/kavrin/TVService/SignalObject";
constexpr const char* kDebugPrintInterface = "com.kavrin.IDebugPrintControl";

struct BusUnref {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, BusUnref>;
using BusMessage = std::unique_ptr<sd_bus_message, BusUnref>;

/// Passes on what an sd-bus function returned; throws std::system_error if that is an error.
int Checked(int result);

/// sd_bus_wait for that many microseconds at most, but an interruption by a signal (EINTR) is not an error.
int WaitForBus(sd_bus* bus, std::uint64_t microseconds);

/// Appends the values as `av`. Tags of the top level do not travel.
void AppendValues(sd_bus_message* message, const std::vector<TCTreeNode>& values);

/// Reads an `av`. Throws std::system_error if it holds anything but trees, or trees that are too deep or too large.
std::vector<TCTreeNode> ReadValues(sd_bus_message* message);

} // namespace host
