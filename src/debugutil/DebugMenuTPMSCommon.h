// What the groups of TPMS tests share: frame, prompts, failures and results.
#pragma once

#include "debugutil/Console.h"
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/Menu.h"
#include "debugutil/Session.h"

#include <string>

namespace tpms
{

constexpr int kNoAnswer = -1;    // what m_SelectCmd returns for anything but a number
constexpr int kNoMajor = 0xFFFF; // the low 16 bits of that
constexpr const char* kCommandPrompt = "cmd> ";
constexpr const char* kMajorPrompt = "major> ";

inline const TSMenuFrame& Frame()
{
    static const TSMenuFrame frame = {std::string(36, '=') + "\n", std::string(36, '-') + "\n"};
    return frame;
}

/// Prints a menu; an empty line follows it.
template <class Rows> void PrintMenu(const char* title, const Rows& rows, const TSMenuFrame& frame = Frame())
{
    console::WriteLine(FrameMenu(frame, title, rows));
}

inline TCSession<ISourceControl> CreateSourceControl(EProfile profile = PROFILE_MAIN)
{
    return CreateSession("CreateSourceControl failed\n", TVServiceAPI::CreateSourceControl, profile, 0);
}

inline TCSession<IServiceNavigation> CreateServiceNavigation()
{
    return CreateSession("CreateServiceNavigation failed\n", TVServiceAPI::CreateServiceNavigation, PROFILE_MAIN, 0);
}

inline TCSession<IPipelineUtility> CreatePipelineUtility()
{
    return CreateSession("CreatePipelineUtility failed\n", TVServiceAPI::CreatePipelineUtility, PROFILE_MAIN, 0);
}

inline TCSession<IService> CreateService()
{
    return CreateSession("CreateService failed\n", TVServiceAPI::CreateService);
}

inline TCSession<IVideoControl> CreateVideoControl(EProfile profile)
{
    return CreateSession("CreateVideoControl failed\n", TVServiceAPI::CreateVideoControl, profile, 0);
}

/// What a menu does with a number that it does not have; the result says whether it goes on.
inline bool Ignore(int /*number*/) { return true; }
inline bool Leave(int /*number*/) { return false; }
inline bool Refuse(int number)
{
    console::WriteLine("unsupported command: " + std::to_string(number));
    return true;
}

/// Prints the result of an operation for which 1 is success.
inline void ReportResult(const std::string& label, int result)
{
    console::WriteLine((result == 1 ? "Succesfully called " : "Fail to ") + label + ", ret=" + std::to_string(result));
}

/// Says for which channel a lookup failed, on the line that it has begun.
inline void ReportMajor(int major) { console::WriteLine(" for major=" + std::to_string(major)); }

} // namespace tpms

template <class Rows, class... Arguments>
void TCDebugMenuTPMS::m_RunMenu(const std::function<void()>& print, const char* prompt, const Rows& rows,
                                bool (*onUnknown)(int number), Arguments&&... arguments)
{
    while (!console::InputEnded()) {
        print();
        const int answer = m_SelectCmd(prompt);
        if (answer == kMenuExit)
            return;
        if (const auto* row = FindRow(rows, answer))
            row->run(arguments...);
        else if (answer != tpms::kNoAnswer && !onUnknown(answer))
            return;
    }
}
