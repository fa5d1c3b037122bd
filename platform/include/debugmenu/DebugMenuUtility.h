// What debug menus of the platform share.
#pragma once

#include <string>

class TCDebugMenuUtility
{
public:
    static const char* const thickLine; ///< separator of a menu's frame, with its line end
    static const char* const thinLine;  ///< separator inside a menu, with its line end

    /// Whether the word is an optional sign and decimal digits, and nothing else.
    static bool IsNumber(const std::string& word);

    /// Loads the library, runs its entry (`extern "C" void entry()`) and returns true when that returns. False, with
    /// the reason on standard error, when the library or the entry is not there. An exception of the entry passes.
    static bool OpenLibrary(const char* path, const char* entry);
};
