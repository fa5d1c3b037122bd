// The platform calls that the trace shows and that a scenario can make fail.
#pragma once

#include <string_view>

namespace host
{

bool IsOperation(std::string_view name);

/// Whether the operation fills in an object.
bool IsFactory(std::string_view name);

} // namespace host
