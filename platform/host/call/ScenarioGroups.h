// The groups of a scenario's key file.
#pragma once

#include "host/call/Scenario.h"

#include <glib.h>

namespace host
{

/// Reads all groups. Throws std::runtime_error that names group, key and value of what is wrong, behind `path`.
Scenario ReadGroups(const std::string& path, GKeyFile* file);

} // namespace host
