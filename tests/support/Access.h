// The private members of the menus that tests use.
#pragma once

#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugUtil.h"

struct TSTestAccess {
    static constexpr auto epgDataFeeding = &TCDebugMenuTPMS::m_EpgDataFeeding;
    static constexpr auto invalidServiceTest = &TCDebugMenuTPMS::m_InvalidServiceTest;
    static constexpr auto setBootupService = &TCDebugMenuTPMS::m_SetBootupService;
    static constexpr bool* exitDebugMenu = &TCDebugUtil::m_exitDebugMenu;
    static constexpr auto signalSubscriber = &TCDebugMenuTPMS::m_signalSubscriber;
};
