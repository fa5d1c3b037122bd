// The TVS debug menu: single operations of the TV service.
#include "debugmenu/DebugMenuUtility.h"
#include "debugutil/Console.h"
#include "debugutil/Control.h"
#include "debugutil/DebugUtil.h"
#include "debugutil/Menu.h"

#include <functional>
#include <optional>

namespace
{

constexpr const char* kLongStars = "**********************\n";
constexpr const char* kInputPrompt = "Input ? >";
constexpr const char* kOnOffPrompt = "Input (0:off, 1:on) ? >";

constexpr ESignalType kMonitoredSignals[] = {SIGNAL_TUNE_START,     SIGNAL_TUNE_SUCCESS, SIGNAL_TUNER_LOCK_FAIL,
                                             SIGNAL_SERVICE_LOCKED, SIGNAL_TUNE_STOP,    SIGNAL_RESOLUTION_CHANGED};

// The errors of this menu have no line end; the menu follows on the same line.
TCControl<ISourceControl> CreateSourceControl(EProfile profile, int screenId)
{
    return CreateControl("[DebugUtil] TVServiceAPI::CreateSourceControl fail", TVServiceAPI::CreateSourceControl,
                         profile, screenId);
}

// The SubID is the screen id of the source control.
std::optional<std::int32_t> AskSubId()
{
    console::Write(std::string(kLongStars) + "*****Select SubID*****\n" + kLongStars);
    return console::AskNumber(kInputPrompt);
}

// The text about a SubID, in a frame.
std::string SubIdBlock(std::int32_t subId, const std::string& lines = "")
{
    return std::string(kLongStars) + "*****Set SubID[" + std::to_string(subId) + "]*****\n" + lines + kLongStars;
}

std::optional<ESource> AskSource(const std::string& before = "")
{
    console::Write(before + "**Source LIST**\n"
                            "0.          TV \n"
                            "1.          AV1 \n"
                            "2.          AV2 \n"
                            "3.          AV3 \n"
                            "7.          COMP1 \n"
                            "8.          COMP2 \n"
                            "9.          COMP3 \n"
                            "13.         HDMI1 \n"
                            "14.         HDMI2 \n"
                            "15.         HDMI3 \n"
                            "16.         HDMI4 \n"
                            "17.         HDMI5 \n"
                            "18.         HDMI6 \n"
                            "***************\n");
    const auto source = console::AskNumber(kInputPrompt);
    if (!source)
        return std::nullopt;
    console::WriteLine("User Input SourceType = " + std::to_string(*source));
    return static_cast<ESource>(*source);
}

void SizeControl()
{
    TVSHandle handle;
    TCDebugUtil::GetTVSHandleByUserInput(&handle, true);
    const auto x = console::AskNumber("X: > ");
    const auto y = console::AskNumber("Y: > ");
    const auto width = console::AskNumber("W: > ");
    const auto height = console::AskNumber("H: > ");
    if (!height)
        return; // the input has ended here or at an earlier prompt
    if (const auto video = CreateControl("[DebugUtil] TVServiceAPI::CreateVideoControl fail",
                                         TVServiceAPI::CreateVideoControl, handle.profile, handle.screenId))
        video->SetVideoSize(*x, *y, *height, *width);
}

void NotImplemented() { console::WriteLine("[DebugUtil] Not implemented yet!"); }

// The TV service owns the subscriber and finds it by its callback, so neither command keeps or releases it.
ISignalSubscriber* OpenMonitor()
{
    ISignalSubscriber* subscriber = nullptr;
    const int result = TVServiceAPI::CreateSignalSubscriber(TCDebugUtil::SignalReceivedCallback, &subscriber);
    return result == 0 ? subscriber : nullptr;
}

void SubscribeMonitor()
{
    if (ISignalSubscriber* monitor = OpenMonitor())
        for (const ESignalType signal : kMonitoredSignals)
            monitor->AddSignal(signal, 0, PROFILE_MAIN, 0, 0);
}

void UnsubscribeMonitor()
{
    ISignalSubscriber* monitor = OpenMonitor();
    if (monitor == nullptr) {
        console::Write("[DebugUtil] TVServiceAPI::CreateSignalSubscriber fail");
        return;
    }
    for (const ESignalType signal : kMonitoredSignals)
        monitor->RemoveSignal(signal, PROFILE_MAIN, 0, 0);
}

void SetSource()
{
    const auto subId = AskSubId();
    if (!subId)
        return;
    const auto control = CreateSourceControl(PROFILE_MAIN, *subId);
    if (!control)
        return;
    if (const auto source = AskSource(SubIdBlock(*subId)))
        control->SetSource(*source, "");
}

void GetSource()
{
    const auto subId = AskSubId();
    if (!subId)
        return;
    const auto control = CreateSourceControl(PROFILE_MAIN, *subId);
    if (!control)
        return;
    ESource source = SOURCE_TV;
    control->GetSource(source);
    console::Write(SubIdBlock(*subId, "*****Source[" + std::to_string(source) + "]*****\n"));
}

void SetAnalogCleanView()
{
    console::WriteLine("*****Analog clean view on off?");
    const auto on = console::AskNumber(kOnOffPrompt);
    if (!on)
        return;
    if (const auto control = CreateControl("[DebugUtil] TVServiceAPI::CreateAVControl fail",
                                           TVServiceAPI::CreateAVControl, PROFILE_MAIN, 0))
        control->SetAnalogCleanView(*on != 0);
}

void MonitorSource(int (ISourceControl::*operation)(ESource source))
{
    const auto source = AskSource();
    if (!source)
        return;
    if (const auto control = CreateSourceControl(PROFILE_SOURCE_MONITORING, 0))
        std::invoke(operation, *control, *source);
}

void SetSoundOnVideoCall()
{
    const auto on = console::AskNumber(kInputPrompt);
    if (!on)
        return;
    console::WriteLine("User Input OnOff = " + std::to_string(*on));
    if (const auto control = CreateSourceControl(PROFILE_MAIN, 0))
        control->SetSoundOnVideoCall(*on != 0);
}

void GetPIDSetStatus()
{
    bool set = false;
    const auto utility = CreateControl("[DebugUtil] TVServiceAPI::CreatePipelineUtility fail",
                                       TVServiceAPI::CreatePipelineUtility, PROFILE_MAIN, 0);
    if (!utility)
        return;
    utility->GetPIDSetStatus(set);
    console::Write(std::string(kLongStars) + "*****GetPIDSetStatus[" + (set ? "1" : "0") + "]*****\n" + kLongStars);
}

} // namespace

const TCMenu<> TCDebugUtil::m_tvsDebugMenu = {
    {TCDebugMenuUtility::thickLine, TCDebugMenuUtility::thinLine},
    "\t[Process Debug List]\t\n",
    {
        {1, " 1. Size Control\n", SizeControl},
        {2, " 2. Add reference Count\n", NotImplemented},
        {3, " 3. Release reference Count\n", NotImplemented},
        {4, " 4. Signal Test - Subscribe\n", SubscribeMonitor},
        {5, " 5. Signal Test - Unsubscribe\n", UnsubscribeMonitor},
        {6, " 6. Set Source\n", SetSource},
        {7, " 7. Get Source\n", GetSource},
        {8, " 8. Set Analog Clean view\n", SetAnalogCleanView},
        {12, " 12.[LFD]StartSourceMonitoring\n", [] { MonitorSource(&ISourceControl::StartSourceMonitoring); }},
        {13, " 13.[LFD]StopSourceMonitoring\n", [] { MonitorSource(&ISourceControl::StopSourceMonitoring); }},
        {14, " 14.[LFD]SetSoundOnVideoCall\n", SetSoundOnVideoCall},
        {15, " 15.GetPIDSetStatus\n", GetPIDSetStatus},
    },
};

std::string TCDebugUtil::CreateTVSDebugMenu() { return m_tvsDebugMenu.Text(); }

bool TCDebugUtil::TVSDebugFunction()
{
    console::WriteLine("DebugUtil");
    RunMenu([] { console::Write(CreateTVSDebugMenu()); }, AskCommand,
            [](int command) { return m_tvsDebugMenu.Dispatch(command, PrintUnrecognized); });
    return true;
}
