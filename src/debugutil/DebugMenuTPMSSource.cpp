// Tests that switch a pipeline to a source or a service.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

namespace
{

constexpr const char* kSelectPrompt = " select num> ";
constexpr unsigned long long kFixedServiceId = 0xFA0000000002002D;

void SetSourceOnMain(ESource source)
{
    if (const auto control = tpms::CreateSourceControl())
        control->SetSource(source, "");
}

void SetServiceOnMain(unsigned long long serviceId)
{
    if (const auto control = tpms::CreateSourceControl())
        control->SetSource(SOURCE_TV, serviceId, "");
}

// Makes the pipeline available if another application uses it.
void PreparePipeline(ISourceControl& control)
{
    control.StopCurrentSource();
    control.ReleaseDecoders();
    control.ClaimPipeline();
}

} // namespace

const TCMenu<TCDebugMenuTPMS&> TCDebugMenuTPMS::m_test7Menu = {
    tpms::Frame(),
    "\t[Test7 List - SetSource]\t\n",
    {
        {1, " 1. call [Main Handle] ISourceControl::SetSource(TV Source)  \n",
         [](TCDebugMenuTPMS&) { SetSourceOnMain(SOURCE_TV); }},
        {2, " 2. call [Main Handle] ISourceControl::SetSource(HDMI1 Source)  \n",
         [](TCDebugMenuTPMS&) { SetSourceOnMain(SOURCE_HDMI1); }},
        {3, " 3. call [PIP Handle] ISourceControl::SetSource(TV Source) \n",
         [](TCDebugMenuTPMS& menu) { menu.m_SetServiceOnPipeline(PROFILE_PIP); }},
        {4, " 4. call [Main Handle] ISourceControl::SetSource(Component1Source) \n",
         [](TCDebugMenuTPMS&) { SetSourceOnMain(SOURCE_COMP1); }},
        {5, " 5. call [Main Handle] ISourceControl::SetSource(TV Source, 0xfa0000000002002d) \n",
         [](TCDebugMenuTPMS&) { SetServiceOnMain(kFixedServiceId); }},
        {6, " 6. call [Clone Handle] ISourceControl::SetSource(TV Source) \n",
         [](TCDebugMenuTPMS& menu) { menu.m_SetServiceOnPipeline(PROFILE_MAIN); }},
        {7, " 7. call [Clone Handle] ISourceControl::SetSource(HDMI Source) \n", &TCDebugMenuTPMS::m_SetSourceOnClone},
    },
};

void TCDebugMenuTPMS::m_Start_Test7_SetSource()
{
    // For an unknown number, and for a word that is not a number (-1): the same as row 1.
    constexpr auto setSourceTV = [](int /*number*/) {
        SetSourceOnMain(SOURCE_TV);
        return true;
    };
    RunMenu([this] { m_PrintMenu_Test7_SetSource(); }, [this] { return std::optional(m_SelectCmd(kSelectPrompt)); },
            [&](int command) { return m_test7Menu.Dispatch(command, setSourceTV, *this); });
}

void TCDebugMenuTPMS::m_PrintMenu_Test7_SetSource() { tpms::PrintMenu(m_test7Menu); }

void TCDebugMenuTPMS::m_SetServiceOnPipeline(EProfile profile)
{
    const auto control = tpms::CreateSourceControl(profile);
    if (!control)
        return;
    const unsigned short major = m_SelectMajor();
    if (major == tpms::kNoMajor)
        return;
    const unsigned long long serviceId = m_GetServiceId(ANTENNA_MODE_AIR, major);
    PreparePipeline(*control);
    control->SetSource(SOURCE_TV, serviceId, "");
    m_BindWindow(profile);
}

// The clone has no pipeline; it uses the main one.
void TCDebugMenuTPMS::m_SetSourceOnClone()
{
    const auto control = tpms::CreateSourceControl();
    if (!control)
        return;
    PreparePipeline(*control);
    control->SetSource(SOURCE_HDMI1, "");
    m_BindWindow(PROFILE_MAIN);
}

void TCDebugMenuTPMS::m_BindWindow(EProfile profile)
{
    int windowId = 0; // used if the key is missing
    m_GetVconfInt("db/tv-viewer/window_id", &windowId);
    if (const auto video = tpms::CreateVideoControl(profile))
        video->SetWindowId(windowId);
}

const TCMenu<TCDebugMenuTPMS&> TCDebugMenuTPMS::m_test17Menu = {
    tpms::Frame(),
    "\t[Test17 List - SetPreviewSource]\t\n",
    {
        {1, " 1. call [Main Handle] ISourceControl::SetPreviewSource(ESource)  \n",
         [](TCDebugMenuTPMS& menu) { menu.m_SetPreviewSource(/*withService=*/false); }},
        {2, " 2. call [Main Handle] ISourceControl::SetPreviewSource(ESource, Major)  \n",
         [](TCDebugMenuTPMS& menu) { menu.m_SetPreviewSource(/*withService=*/true); }},
    },
};

void TCDebugMenuTPMS::m_Start_Test17_SetPrevieSource()
{
    m_RunMenu([this] { m_PrintMenu_Test17_SetPrevieSource(); },
              [this](int command) { return m_test17Menu.Dispatch(command, tpms::Ignore, *this); }, kSelectPrompt);
}

void TCDebugMenuTPMS::m_PrintMenu_Test17_SetPrevieSource() { tpms::PrintMenu(m_test17Menu); }

void TCDebugMenuTPMS::m_SetPreviewSource(bool withService)
{
    const int typed = m_SelectCmd("Enter ESource (TV=0, HDMI1=13)> ");
    if (typed == tpms::kNoAnswer)
        return;
    if (typed < SOURCE_TV || typed > SOURCE_LAST) {
        console::WriteLine("Invalid source " + std::to_string(typed) + ". Valid values (" + std::to_string(SOURCE_TV) +
                           ", " + std::to_string(SOURCE_LAST) + ")");
        return;
    }
    const auto source = static_cast<ESource>(typed);
    unsigned long long serviceId = INVALID_SERVICE_ID;
    if (withService) {
        const int major = m_SelectCmd("Enter major (int)> ");
        if (major == tpms::kNoAnswer)
            return;
        serviceId = m_GetServiceId(ANTENNA_MODE_AIR, static_cast<unsigned short>(major));
        if (serviceId == INVALID_SERVICE_ID) {
            tpms::ReportMajor(major);
            return;
        }
    }
    auto control = tpms::CreateSourceControl();
    if (!control)
        return;
    const int result =
        withService ? control->SetPreviewSource(source, serviceId, "") : control->SetPreviewSource(source, "");
    control = {}; // released before the report
    tpms::ReportResult("SetPreviewSource", result);
}

const TCMenu<IServiceNavigation&, ISourceControl&> TCDebugMenuTPMS::m_invalidServiceMenu = {
    tpms::Frame(),
    "\t[Test20 List - InvalidServiceTest]\t\n",
    {
        {1, " 1. SetService(INVALID_SERVICE_ID)\n",
         [](IServiceNavigation& navigation, ISourceControl&) { navigation.SetService(INVALID_SERVICE_ID, 0, 0, ""); }},
        {2, " 2. SetSource(INVALID_SERVICE_ID)\n",
         [](IServiceNavigation&, ISourceControl& control) { control.SetSource(SOURCE_TV, INVALID_SERVICE_ID, ""); }},
    },
};

bool TCDebugMenuTPMS::m_InvalidServiceTest()
{
    TCControl<ISourceControl> control; // declared first, so that it is released after the navigation
    const auto navigation = tpms::CreateServiceNavigation();
    if (!navigation)
        return false;
    control = tpms::CreateSourceControl();
    if (!control)
        return false;
    m_RunMenu([] { tpms::PrintMenu(m_invalidServiceMenu); },
              [&](int command) {
                  return m_invalidServiceMenu.Dispatch(command, tpms::PrintUnsupported, *navigation, *control);
              });
    return true;
}

bool TCDebugMenuTPMS::m_SetBootupService()
{
    const auto navigation = tpms::CreateServiceNavigation();
    if (!navigation)
        return false;
    const unsigned short major = m_SelectMajor();
    if (major == tpms::kNoMajor)
        return false;
    const unsigned long long serviceId = m_GetServiceId(major);
    TSTvMode mode(ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN);
    if (navigation->SetBootupService(serviceId, &mode, 0) > 0)
        return true;
    console::Write(" SetBootupService failed!");
    return false;
}
