// The methods of com.kavrin.IDebugPrintControl, the remote interface to the TV service's own debug menu.
#pragma once

/// The number of a method. Each call sends it with the name. A console may meet a service of another version, so append
/// new methods; never change or reuse a number.
enum EDebugPrintMethod : short {
    DEBUG_PRINT_START = 0,
    DEBUG_PRINT_EXECUTE = 1,
    DEBUG_PRINT_STOP = 2,
    DEBUG_PRINT_CHECK = 3,
    DEBUG_PRINT_GET_MENU_ITEMS = 4,
    DEBUG_PRINT_SET_MENU_ITEMS = 5,
    DEBUG_PRINT_SET_MENU_ITEM = 6,
    DEBUG_PRINT_SET_QOS_ENABLED = 7,
    DEBUG_PRINT_IS_QOS_ENABLED = 8,
    DEBUG_PRINT_SET_DEBUG_MODE = 9,
    DEBUG_PRINT_IS_DEBUG_MODE_ENABLED = 10,
    DEBUG_PRINT_METHOD_COUNT
};

/// The names of the methods, in the order of their numbers.
constexpr const char* kDebugPrintMethodNames[] = {
    "Start",              // 0
    "Execute",            // 1
    "Stop",               // 2
    "Check",              // 3
    "GetMenuItems",       // 4
    "SetMenuItems",       // 5
    "SetMenuItem",        // 6
    "SetQoSEnabled",      // 7
    "IsQoSEnabled",       // 8
    "SetDebugMode",       // 9
    "IsDebugModeEnabled", // 10
};
static_assert(sizeof kDebugPrintMethodNames / sizeof *kDebugPrintMethodNames == DEBUG_PRINT_METHOD_COUNT,
              "each number has a name");
