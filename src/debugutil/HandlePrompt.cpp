#include "debugutil/HandlePrompt.h"

#include "debugutil/Console.h"

#include <string>

void PromptForTVSHandle(TVSHandle* handle, bool askProfile)
{
    *handle = {PROFILE_MAIN, 0};
    const auto screenId = console::AskNumber("Input ScreenId. Main:0, Zanti:1 > ");
    if (!screenId)
        return;
    handle->screenId = static_cast<std::uint16_t>(*screenId);
    if (askProfile) {
        const auto profile = console::AskNumber("Input Profile. Main:0, PIP:1 , Analysis:2 > ");
        if (!profile)
            return;
        handle->profile = *profile == 1 ? PROFILE_PIP : *profile == 2 ? PROFILE_ANALYSIS : PROFILE_MAIN;
    }
    console::WriteLine("User Input : screenId:" + std::to_string(handle->screenId) +
                       " profile:" + std::to_string(handle->profile));
}
