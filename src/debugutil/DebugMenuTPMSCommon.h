// Helpers of the TPMS tests: menus, control objects and results.
#pragma once

#include "debugutil/Console.h"
#include "debugutil/Control.h"
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/Menu.h"
#include "tvs-api/TVServiceAPI.h"

#include <string>

namespace tpms
{

constexpr int kNoAnswer = -1; // m_SelectCmd returns it for a word that is not a number and at the end of input
constexpr unsigned short kNoMajor = 0xFFFF; // m_SelectMajor returns it in the same cases

inline const TSMenuFrame& Frame()
{
    static const TSMenuFrame frame = {std::string(36, '=') + "\n", std::string(36, '-') + "\n"};
    return frame;
}

/// Prints a test's menu and an empty line. Prints nothing after the end of input, unlike the main menus.
template <class Menu> void PrintMenu(const Menu& menu)
{
    if (!console::InputEnded())
        console::WriteLine(menu.Text());
}

inline TCControl<ISourceControl> CreateSourceControl(EProfile profile = PROFILE_MAIN)
{
    return CreateControl("CreateSourceControl failed\n", TVServiceAPI::CreateSourceControl, profile, 0);
}

inline TCControl<IServiceNavigation> CreateServiceNavigation()
{
    return CreateControl("CreateServiceNavigation failed\n", TVServiceAPI::CreateServiceNavigation, PROFILE_MAIN, 0);
}

inline TCControl<IPipelineUtility> CreatePipelineUtility()
{
    return CreateControl("CreatePipelineUtility failed\n", TVServiceAPI::CreatePipelineUtility, PROFILE_MAIN, 0);
}

inline TCControl<IService> CreateService()
{
    return CreateControl("CreateService failed\n", TVServiceAPI::CreateService);
}

inline TCControl<IVideoControl> CreateVideoControl(EProfile profile)
{
    return CreateControl("CreateVideoControl failed\n", TVServiceAPI::CreateVideoControl, profile, 0);
}

/// For Dispatch: what a menu does with an unknown number. Returns false to leave the menu.
inline bool Ignore(int /*number*/) { return true; }
inline bool Leave(int /*number*/) { return false; }
inline bool PrintUnsupported(int number)
{
    console::WriteLine("unsupported command: " + std::to_string(number));
    return true;
}

/// Prints the result of an operation for which 1 is success.
inline void ReportResult(const std::string& label, int result)
{
    console::WriteLine((result == 1 ? "Succesfully called " : "Fail to ") + label + ", ret=" + std::to_string(result));
}

/// Prints the channel after "FindService failed", on the same line.
inline void ReportMajor(int major) { console::WriteLine(" for major=" + std::to_string(major)); }

} // namespace tpms
