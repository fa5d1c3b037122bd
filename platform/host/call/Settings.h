// What the host platform is told by its environment.
#pragma once

#include <optional>
#include <string>

namespace host
{

/// The environment variable; none when it is unset or empty.
std::optional<std::string> Setting(const char* name);

} // namespace host
