#include "host/call/Settings.h"

#include <cstdlib>

namespace host
{

std::optional<std::string> Setting(const char* name)
{
    const char* value = secure_getenv(name);
    if (value == nullptr || *value == '\0')
        return std::nullopt;
    return value;
}

} // namespace host
