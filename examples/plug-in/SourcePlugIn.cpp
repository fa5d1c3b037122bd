// A debug-menu plug-in: says which input the main picture shows, then opens the TPMS test menu.
#include "debugutil/DebugMenuTPMS.h"
#include "tvs-api/TVServiceAPI.h"

#include <iostream>
#include <memory>

extern "C" __attribute__((visibility("default"))) void ht_subdebugmenu()
{
    ISourceControl* created = nullptr;
    if (TVServiceAPI::CreateSourceControl(PROFILE_MAIN, 0, &created) != 0) {
        std::cout << "no source control\n" << std::flush;
        return;
    }
    const std::unique_ptr<ISourceControl, void (*)(ITvsSession*)> control(created, TVServiceAPI::Destroy);
    ESource source = SOURCE_TV;
    control->GetSource(source);
    std::cout << "source " + std::to_string(source) + "\n" << std::flush;
    TCDebugMenuTPMS().Enter();
}
