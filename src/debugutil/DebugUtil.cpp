// The top-level menu, the remote menu and the plug-in.
#include "debugutil/DebugUtil.h"

#include "debugmenu/DebugMenuUtility.h"
#include "debugutil/Console.h"
#include "debugutil/HandlePrompt.h"
#include "debugutil/Menu.h"
#include "debugutil/TerminationSignals.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <optional>

// Initialized in this order, after the standard streams. The proxy opens its connection here.
bool TCDebugUtil::m_isDebugUtilMenu = true;
bool TCDebugUtil::m_exitDebugMenu = false;
std::string TCDebugUtil::m_response;
TCDebugPrintControlProxy TCDebugUtil::tvsDebug("com.kavrin.IDebugPrintControl");
const std::vector<TSMenuOption> TCDebugUtil::m_debugUtilMenu = {
    {1, "TVS", CreateTVSMenu},
    {2, "TV Player", PrintUnimplemantedWarningAction},
    {3, "TV Plug in", PrintUnimplemantedWarningAction},
    {4, "Dravel-Provider", PrintUnimplemantedWarningAction},
    {5, "TVS Debug", TVSDebugFunction},
    {6, "TVS HT Debug", OpenDebughtLibAction},
    {99, "Exit", ExitAction},
};

namespace
{

constexpr std::int32_t kLastOptionAboveDivider = 50;

// Runs an option. An exception ends the option and is printed; the console continues.
void RunAction(const std::string& name, const std::function<void()>& action)
{
    std::optional<std::string> failure;
    try {
        action();
    } catch (const std::exception& error) {
        failure = error.what();
    } catch (...) {
        failure = "unknown exception";
    }
    console::ResetStreams();
    termination::UnblockSignals(); // a plug-in may have left them blocked
    if (!failure)
        return;
    std::replace_if(
        failure->begin(), failure->end(), [](unsigned char byte) { return std::iscntrl(byte) != 0; }, ' ');
    console::PrintError(name + ": " + *failure);
}

std::string MenuText(const std::vector<TSMenuOption>& options)
{
    std::string text = std::string(TCDebugMenuUtility::thickLine) + "DebugUtilMenu\n" + TCDebugMenuUtility::thinLine;
    const auto firstBelow = std::find_if(
        options.begin(), options.end(), [](const TSMenuOption& option) { return option.id > kLastOptionAboveDivider; });
    for (auto option = options.begin(); option != options.end(); ++option) {
        if (option == firstBelow)
            text += TCDebugMenuUtility::thinLine;
        text += std::to_string(option->id) + " " + option->name + "\n";
    }
    return text + TCDebugMenuUtility::thickLine;
}

} // namespace

void TCDebugUtil::StartMenu()
{
    console::WriteLine("DebugUtil");
    while (!m_exitDebugMenu) {
        if (m_isDebugUtilMenu)
            m_RunLocalMenu();
        else
            m_RunRemotePass();
    }
}

void TCDebugUtil::m_RunLocalMenu()
{
    static const std::string menu = MenuText(m_debugUtilMenu);
    RunMenu([] { console::Write(menu); }, AskCommand, m_RunOption);
    if (console::InputEnded())
        ExitAction();
}

bool TCDebugUtil::m_RunOption(std::int32_t number)
{
    const auto option = std::find_if(m_debugUtilMenu.begin(), m_debugUtilMenu.end(),
                                     [number](const TSMenuOption& candidate) { return candidate.id == number; });
    if (option == m_debugUtilMenu.end()) {
        console::WriteLine("Option was not recognised " + std::to_string(number));
    } else {
        console::WriteLine("executing: " + option->name);
        RunAction(option->name, option->action);
    }
    return m_isDebugUtilMenu && !m_exitDebugMenu;
}

void TCDebugUtil::m_RunRemotePass()
{
    console::Write(m_response);
    std::string word;
    std::int32_t result = 0;
    if (console::ReadWord(word))
        RunAction("TVS", [&] { result = tvsDebug.Execute(word, m_response); });
    else
        ExitAction();
    if (result < 1) {
        RunAction("TVS", [] { tvsDebug.Stop(); });
        m_isDebugUtilMenu = true;
    }
}

void TCDebugUtil::CreateTVSMenu()
{
    if (tvsDebug.Start(m_response) > 0)
        m_isDebugUtilMenu = false;
    else
        console::WriteLine("Failed to start TVS debug print control");
}

void TCDebugUtil::ExitAction() { m_exitDebugMenu = true; }

void TCDebugUtil::OpenDebughtLibAction()
{
    TCDebugMenuUtility::OpenLibrary("/usr/lib/libht-debugmenu.so", "ht_subdebugmenu");
}

void TCDebugUtil::PrintUnimplemantedWarningAction() { console::WriteLine("Command not implemented"); }

void TCDebugUtil::GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile)
{
    PromptForTVSHandle(handle, askProfile);
}
