// The pipeline of a control object.
#pragma once

#include "tvs-api/Types.h"

#include <tuple>

namespace host
{

/// Factories take screen ids of 32 bits, each a pipeline of its own; signals and the status have only the low 16 bits.
struct Pipeline {
    EProfile profile = PROFILE_MAIN;
    std::int32_t screenId = 0;

    TVSHandle Handle() const { return {profile, static_cast<std::uint16_t>(screenId)}; }
};

inline bool operator==(const Pipeline& a, const Pipeline& b)
{
    return a.profile == b.profile && a.screenId == b.screenId;
}

inline bool operator<(const Pipeline& a, const Pipeline& b)
{
    return std::tie(a.profile, a.screenId) < std::tie(b.profile, b.screenId);
}

} // namespace host
