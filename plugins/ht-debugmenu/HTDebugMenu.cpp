// The HT debug menu plug-in of the host. It opens the TPMS test menu.
#include "debugutil/DebugMenuTPMS.h"

extern "C" __attribute__((visibility("default"))) void ht_subdebugmenu() { TCDebugMenuTPMS().Enter(); }
