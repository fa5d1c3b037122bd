// Tests of the reference count, mute, HDMI analysis and the DTV mode.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

#include <cstddef>
#include <iterator>

namespace
{

void ReportReferenceCount(IReferenceCount& control)
{
    int count = -1;
    control.GetReferenceCount(count);
    console::WriteLine("Reference count value is: " + std::to_string(count));
}

// This menu numbers the HDMI inputs from 1; any other number is HDMI1.
ESource SourceOfHDMIInput(int number)
{
    constexpr int sources[] = {SOURCE_HDMI1, SOURCE_HDMI2, SOURCE_HDMI3, SOURCE_HDMI4, 38, 39, 46, 47};
    const auto index = static_cast<std::size_t>(number) - 1;
    return static_cast<ESource>(sources[index < std::size(sources) ? index : 0]);
}

} // namespace

const TCMenu<IReferenceCount&> TCDebugMenuTPMS::m_test1Menu = {
    tpms::Frame(),
    "\t[Test1 List - Reference Count]\t\n",
    {
        {1, " 1. Call GetReferenceCount() \n", ReportReferenceCount},
    },
};

const TCMenu<IAVControl&, int> TCDebugMenuTPMS::m_test2Menu = {
    tpms::Frame(),
    "\t[Test1 List - Video Mute Control]\t\n",
    {
        {1, " 1. call IAVControl::MuteVudio \n", &IAVControl::MuteVideo},
        {2, " 2. call IAVControl::MuteAudio \n", &IAVControl::MuteAudio},
    },
};

const TCMenu<ISourceControl&, ESource> TCDebugMenuTPMS::m_test3Menu = {
    tpms::Frame(),
    "\t[Test3 List - HDMI Analysis]\t\n",
    {
        {1, " 1. call ISourceControl::StartHDMIAnalysis \n", &ISourceControl::StartHDMIAnalysis},
        {2, " 2. call ISourceControl::StopHDMIAnalysis \n", &ISourceControl::StopHDMIAnalysis},
    },
};

const TCMenu<IServiceNavigation&> TCDebugMenuTPMS::m_test6Menu = {
    tpms::Frame(),
    "\t[Test6 List - DTV Mode Test]\t\n",
    {
        {1, " 1. call IServiceNavigation::SetDTVMode(DTV_MODE_DEMUX_ONLY,true) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_DEMUX_ONLY, true); }},
        {2, " 2. call IServiceNavigation::SetDTVMode(DTV_MODE_DEMUX_ONLY,false) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_DEMUX_ONLY, false); }},
        {3, " 3. call IServiceNavigation::SetDTVMode(DTV_MODE_AUDIO_ONLY,true) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_AUDIO_ONLY, true); }},
        {4, " 4. call IServiceNavigation::SetDTVMode(DTV_MODE_AUDIO_ONLY,false) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_AUDIO_ONLY, false); }},
        {5, " 5. call IServiceNavigation::SetDTVMode(DTV_MODE_VIDEO_ONLY,true) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_VIDEO_ONLY, true); }},
        {6, " 6. call IServiceNavigation::SetDTVMode(DTV_MODE_VIDEO_ONLY,false) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_VIDEO_ONLY, false); }},
        {7, " 7. call IServiceNavigation::SetDTVMode(DTV_MODE_ALL,true) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_ALL, true); }},
        {8, " 8. call IServiceNavigation::SetDTVMode(DTV_MODE_ALL,false) \n",
         [](IServiceNavigation& navigation) { navigation.SetDTVMode(DTV_MODE_ALL, false); }},
    },
};

void TCDebugMenuTPMS::m_Start_Test1_ReferenceCount()
{
    TVSHandle handle;
    m_GetTVSHandleByUserInput(&handle, false);
    if (console::InputEnded())
        return;
    const auto control = CreateControl("CreateReferenceCount failed\n", TVServiceAPI::CreateReferenceCount,
                                       handle.profile, handle.screenId);
    if (control)
        m_RunMenu([this] { m_PrintMenu_Test1_ReferenceCount(); },
                  [&](int command) { return m_test1Menu.Dispatch(command, tpms::Ignore, *control); });
}

void TCDebugMenuTPMS::m_PrintMenu_Test1_ReferenceCount() { tpms::PrintMenu(m_test1Menu); }

void TCDebugMenuTPMS::m_Start_Test2_MuteControl()
{
    TVSHandle handle;
    m_GetTVSHandleByUserInput(&handle, false);
    if (console::InputEnded())
        return;
    const auto control =
        CreateControl("CreateAVControl failed\n", TVServiceAPI::CreateAVControl, handle.profile, handle.screenId);
    if (control)
        m_RunMenu([this] { m_PrintMenu_Test2_MuteControl(); },
                  [&](int command) {
                      const int on = m_SelectCmd("Off:0 / On:1 "); // also for 99
                      return on == tpms::kNoAnswer || m_test2Menu.Dispatch(command, tpms::Ignore, *control, on);
                  });
}

void TCDebugMenuTPMS::m_PrintMenu_Test2_MuteControl() { tpms::PrintMenu(m_test2Menu); }

void TCDebugMenuTPMS::m_Start_Test3_HDMIAnalysis()
{
    const auto control = tpms::CreateSourceControl();
    ESource source = SOURCE_HDMI1; // read before every command
    if (control)
        m_RunMenu(
            [&] {
                source = SourceOfHDMIInput(m_SelectCmd(" [HDMI 1~6] select num> "));
                m_PrintMenu_Test3_HDMIAnalysis();
            },
            [&](int command) { return m_test3Menu.Dispatch(command, tpms::Leave, *control, source); });
}

void TCDebugMenuTPMS::m_PrintMenu_Test3_HDMIAnalysis() { tpms::PrintMenu(m_test3Menu); }

void TCDebugMenuTPMS::m_Start_Test6_SetDTVMode()
{
    const auto navigation = tpms::CreateServiceNavigation();
    if (navigation)
        m_RunMenu([this] { m_PrintMenu_Test6_SetDTVMode(); },
                  [&](int command) { return m_test6Menu.Dispatch(command, tpms::Leave, *navigation); });
}

void TCDebugMenuTPMS::m_PrintMenu_Test6_SetDTVMode() { tpms::PrintMenu(m_test6Menu); }
