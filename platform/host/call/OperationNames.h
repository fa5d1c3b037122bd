// The names of the platform calls in Operations.def.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host
{

/// A platform call: `Owner_Name` for an operation of an interface or class, or the name of a plain function.
enum class Op {
#define OPERATION(owner, name) owner##_##name,
#define FUNCTION(name) name,
#include "host/call/Operations.def"
#undef OPERATION
#undef FUNCTION
    COUNT
};

/// The name in the trace and in a scenario: `Owner::Name`, or the name of a plain function.
const char* NameOf(Op operation);

/// The call with that name, or none.
std::optional<Op> OperationNamed(std::string_view name);

/// The names of all calls.
std::vector<std::string> OperationNames();

/// Whether the call creates an object.
bool IsFactory(Op operation);

constexpr auto kOperationCount = static_cast<std::size_t>(Op::COUNT);

} // namespace host
