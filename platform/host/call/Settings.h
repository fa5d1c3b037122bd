// The settings of the host platform, which are environment variables.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace host
{

/// The value of the environment variable; none if it is unset or empty.
inline std::optional<std::string> Setting(const char* name)
{
    const char* const value = secure_getenv(name);
    return value == nullptr || *value == '\0' ? std::nullopt : std::optional<std::string>(value);
}

} // namespace host
