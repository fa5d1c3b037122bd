#include "debugmenu/DebugMenuUtility.h"

#include "host/call/Settings.h"
#include "host/call/StandardStreams.h"
#include "host/call/Text.h"

#include <dlfcn.h>
#include <unistd.h>

const char* const TCDebugMenuUtility::thickLine = "====================================\n";
const char* const TCDebugMenuUtility::thinLine = "------------------------------------\n";

bool TCDebugMenuUtility::IsNumber(const std::string& word)
{
    const std::size_t sign = word.find_first_of("+-") == 0 ? 1 : 0;
    return word.size() > sign && word.find_first_not_of("0123456789", sign) == std::string::npos;
}

bool TCDebugMenuUtility::OpenLibrary(const char* path, const char* entry)
{
    constexpr const char* sysroot = "DEBUGMENU_SYSROOT";
    const std::string file = host::Setting(sysroot).value_or("") + path;
    // Never closed: threads, callbacks and exceptions of the plug-in may use its code later.
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* symbol = library == nullptr ? nullptr : dlsym(library, entry);
    if (symbol == nullptr) {
        const char* error = dlerror();
        std::string reason = error == nullptr ? "the entry is null" : error;
        if (reason.rfind(file + ": ", 0) == 0)
            reason.erase(0, file.size() + 2);
        if (access(file.c_str(), F_OK) != 0)
            reason += std::string(" (") + sysroot + " moves it)";
        host::PrintError(host::OneLine(file + ": " + reason));
        return false;
    }
    reinterpret_cast<void (*)()>(symbol)();
    return true;
}
