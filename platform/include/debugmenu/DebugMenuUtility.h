// Helpers of all debug menus of the platform.
#pragma once

#include <string>

class TCDebugMenuUtility
{
public:
    static const char* const thickLine; ///< separator of a menu's frame, with a line end
    static const char* const thinLine;  ///< separator inside a menu, with a line end

    /// Whether the word is an optional sign and one or more decimal digits.
    static bool IsNumber(const std::string& word);

    /// Loads the library, calls its entry (`extern "C" void entry()`) on this thread and returns true. If the library
    /// cannot be loaded or has no such entry, prints an error on standard error and returns false. An exception of the
    /// entry reaches the caller.
    static bool OpenLibrary(const char* path, const char* entry);
};
