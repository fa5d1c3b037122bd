// Trees in D-Bus messages: a plain value is a variant by its width, a branch a variant with `a(nv)`.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <memory>
#include <systemd/sd-bus.h>
#include <vector>

namespace host
{

struct BusUnref {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, BusUnref>;
using BusMessage = std::unique_ptr<sd_bus_message, BusUnref>;

/// Passes on what an sd-bus function returned; throws std::system_error if that is an error.
int Checked(int result);

/// Appends the values as `av`. Tags of the top level do not travel.
void AppendValues(sd_bus_message* message, const std::vector<TCTreeNode>& values);

/// Reads an `av`. Throws std::system_error if it holds anything but trees, or trees too deep or too large to be honest.
std::vector<TCTreeNode> ReadValues(sd_bus_message* message);

} // namespace host
