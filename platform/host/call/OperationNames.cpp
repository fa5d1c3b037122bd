#include "host/call/OperationNames.h"

#include <algorithm>
#include <iterator>

namespace host
{
namespace
{

constexpr const char* kNames[] = {
#define OPERATION(owner, name) #owner "::" #name,
#define FUNCTION(name) #name,
#include "host/call/Operations.def"
#undef OPERATION
#undef FUNCTION
};
static_assert(std::size(kNames) == kOperationCount);

} // namespace

const char* NameOf(Op operation) { return kNames[static_cast<std::size_t>(operation)]; }

std::optional<Op> OperationNamed(std::string_view name)
{
    const auto* const found = std::find(std::begin(kNames), std::end(kNames), name);
    if (found == std::end(kNames))
        return std::nullopt;
    return static_cast<Op>(found - std::begin(kNames));
}

std::vector<std::string> OperationNames() { return {std::begin(kNames), std::end(kNames)}; }

bool IsFactory(Op operation) { return std::string_view(NameOf(operation)).rfind("TVServiceAPI::Create", 0) == 0; }

} // namespace host
