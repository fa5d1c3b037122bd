// A debug-menu plug-in with a menu of its own: prints the source of the main screen and opens the TPMS test menu.
#include "debugutil/DebugMenuTPMS.h"
#include "tvs-api/TVServiceAPI.h"

#include <iostream>
#include <memory>
#include <string>

namespace
{

void PrintSource()
{
    ISourceControl* created = nullptr;
    const int result = TVServiceAPI::CreateSourceControl(PROFILE_MAIN, 0, &created);
    // Released at the end of the scope, also after an exception and when the factory has failed but left an object.
    const std::unique_ptr<ISourceControl, void (*)(ITvsSession*)> control(created, TVServiceAPI::Destroy);
    if (result != 0 || !control) {
        std::cout << "CreateSourceControl failed\n";
        return;
    }
    ESource source = SOURCE_TV;
    control->GetSource(source);
    std::cout << "source " + std::to_string(source) + "\n";
}

} // namespace

extern "C" __attribute__((visibility("default"))) void ht_subdebugmenu()
{
    std::string word; // and not a number: a word that is none would leave std::cin in a failed state
    for (;;) {
        std::cout << "1 Source\n2 TPMS test menu\n99 Exit\nplug-in> " << std::flush; // a pipe shows it only then
        if (!(std::cin >> word) || word == "99")
            return; // at the end of the input, too
        if (word == "1")
            PrintSource();
        else if (word == "2")
            TCDebugMenuTPMS().Enter();
    }
}
