// Trees in D-Bus messages: a plain value is a variant of its width, a branch is a variant with `a(nv)`.
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
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
using Bus = std::unique_ptr<sd_bus, BusUnref>;
using BusMessage = std::unique_ptr<sd_bus_message, BusUnref>;
using BusSlot = std::unique_ptr<sd_bus_slot, BusUnref>;

/// Returns the result of an sd-bus function; throws std::system_error if it is an error.
int Checked(int result);

/// A bus that is not started yet.
Bus NewBus();

/// sd_bus_wait, but an interruption by a signal (EINTR) is not an error.
int WaitForBus(sd_bus* bus, std::uint64_t microseconds);

/// Appends the values as `av`. The tags of these values are not sent; those of their children are.
void AppendValues(sd_bus_message* message, const std::vector<TCTreeNode>& values);

/// Reads an `av`. Throws std::system_error if it contains anything but trees, or trees that are too deep or too large.
std::vector<TCTreeNode> ReadValues(sd_bus_message* message);

} // namespace host
