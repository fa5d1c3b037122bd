// The top-level menu and the TVS debug menu.
#pragma once

#include "debugutil/DebugPrintControlProxy.h"
#include "tvs-api/Types.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

template <class... Arguments> class TCMenu;

/// One option of the top-level menu.
struct TSMenuOption {
    std::int32_t id;
    std::string name;
    std::function<void()> action;
};

/// Has static members only. All operations run on the console thread, except SignalReceivedCallback.
class TCDebugUtil
{
public:
    TCDebugUtil() = delete;

    /// Runs the top-level menu, or the remote one while that is open, until Exit or the end of input.
    static void StartMenu();

    /// Option "TVS": opens the remote menu.
    static void CreateTVSMenu();
    /// Option "Exit".
    static void ExitAction();
    /// Option "TVS HT Debug": runs the HT plug-in.
    static void OpenDebughtLibAction();
    /// The options that are not implemented.
    static void PrintUnimplemantedWarningAction();
    /// Option "TVS Debug": runs the TVS debug menu until 99 or the end of input; returns true. An exception of the TV
    /// service reaches the caller.
    static bool TVSDebugFunction();

    /// The text of the TVS debug menu.
    static std::string CreateTVSDebugMenu();
    /// Prompts for a pipeline; both fields are always set.
    static void GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile);
    /// The name of a signal. The text for an unknown signal is valid until the thread calls this again.
    static const char* GetStringOfSignalType(ESignalType type);
    /// Prints the name of the signal and returns 0. The TV service calls it on its own thread.
    static int SignalReceivedCallback(ESignalType type, TSSignalData data, void* userData);

private:
    friend struct TSTestAccess;
    static void m_RunLocalMenu();
    static bool m_RunOption(std::int32_t number);
    static void m_RunRemotePass();

    static bool m_isDebugUtilMenu; // false: the remote menu is open
    static bool m_exitDebugMenu;
    static std::string m_response; // the remote menu's last screen
    static TCDebugPrintControlProxy tvsDebug;
    static const std::vector<TSMenuOption> m_debugUtilMenu;
    static const TCMenu<> m_tvsDebugMenu;
};
