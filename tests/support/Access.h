// What the tests use of the TPMS menu's private part.
#pragma once

#include "debugutil/DebugMenuTPMS.h"

struct TSTestAccess {
    static constexpr auto epgDataFeeding = &TCDebugMenuTPMS::m_EpgDataFeeding;
    static constexpr auto invalidServiceTest = &TCDebugMenuTPMS::m_InvalidServiceTest;
    static constexpr auto setBootupService = &TCDebugMenuTPMS::m_SetBootupService;
    static constexpr auto signalSubscriber = &TCDebugMenuTPMS::m_signalSubscriber;
};
