// The names of the platform calls, from their one list.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host
{

/// A platform call: `Owner_Name`, or the name of a plain function.
enum class Op {
#define OPERATION(owner, name) owner##_##name,
#define FUNCTION(name) name,
#include "host/call/Operations.def"
#undef OPERATION
#undef FUNCTION
    COUNT
};

/// How the call stands in the trace and in a scenario.
const char* NameOf(Op operation);

/// The call of that name, or none.
std::optional<Op> OperationNamed(std::string_view name);

/// All names.
std::vector<std::string> OperationNames();

/// Whether the call fills in an object.
bool IsFactory(Op operation);

constexpr auto kOperationCount = static_cast<std::size_t>(Op::COUNT);

} // namespace host
