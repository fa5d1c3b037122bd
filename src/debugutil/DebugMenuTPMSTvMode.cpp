// Tests of the TV mode with a service, of crop and of captions.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"
#include "debugutil/DebugMenuTPMSLookup.h"

const TCMenu<TCDebugMenuTPMS&, unsigned short> TCDebugMenuTPMS::m_test14Menu = {
    {tpms::Frame().thick, tpms::Frame().thin, /*thinUnderTitle=*/false},
    "\t[Test14 List - SetTvMode with ServiceId Test]\t\n",
    {
        {" RF case:    \n"},
        {1, " 1.  SetTvMode(Air, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_AIR, major, /*vc=*/false); }},
        {2, " 2.  SetTvMode(Cable, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_CABLE, major, /*vc=*/false); }},
        {3, " 3.  SetTvMode(Satellite, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_SATELLITE, major, /*vc=*/false); }},
        {" VC case:    \n"},
        {4, " 4.  SetTvMode(Air, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_AIR, major, /*vc=*/true); }},
        {5, " 5.  SetTvMode(Cable, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_CABLE, major, /*vc=*/true); }},
        {6, " 6.  SetTvMode(Satellite, ch) \n",
         [](auto& menu, auto major) { menu.m_RunSetTvModeTest(ANTENNA_MODE_SATELLITE, major, /*vc=*/true); }},
    },
};

void TCDebugMenuTPMS::m_Start_Test14_SetTvModeTest()
{
    m_RunMenu([this] { m_PrintMenu_Test14_SetTvModeTest(); },
              [this](int command) {
                  const unsigned short major = m_SelectMajor(); // also for 99
                  return major == tpms::kNoMajor || m_test14Menu.Dispatch(command, tpms::Leave, *this, major);
              });
}

void TCDebugMenuTPMS::m_PrintMenu_Test14_SetTvModeTest() { tpms::PrintMenu(m_test14Menu); }

void TCDebugMenuTPMS::m_RunSetTvModeTest(EAntennaMode antenna, unsigned short major, bool vc)
{
    const auto navigation = tpms::CreateServiceNavigation();
    if (!navigation)
        return;
    const auto service = tpms::CreateService();
    if (!service)
        return;
    TSTvMode mode(ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN);
    navigation->GetTvMode(mode);
    const EServiceProfile profile = tpms::ServiceProfileOf(mode);
    mode.antennaMode = antenna;
    mode.serviceMode = TCServiceUtility::ServiceProfileToServiceMode(profile);

    TCCriteriaHelper criteria = tpms::ChannelCriteria(profile, major);
    if (vc) {
        criteria.Where(tpms::kChannelType, tpms::kChannelTypeVC);
        criteria.Where(tpms::kAntennaOfVC, antenna);
    } else {
        criteria.Where(tpms::kChannelType, TCServiceUtility::AntennaModeToDigitalChannelType(antenna));
    }
    TCServiceData data; // released before the criteria and the controls
    if (tpms::FindService(*service, criteria, data) &&
        navigation->SetTvMode(mode, tpms::ReadServiceIdTag(data), "") <= 0)
        console::Write(" SetTVMode failed!");
}

void TCDebugMenuTPMS::m_Start_Test15_SetCropVideoTest()
{
    if (const auto video = tpms::CreateVideoControl(PROFILE_CROP))
        video->SetCropVideo({540, 380, 100, 100}, {1520, 680, 400, 400});
}

void TCDebugMenuTPMS::m_Start_Test16_CheckCaptionExistTest()
{
    console::WriteLine("Check Caption exist");
    const auto control = CreateControl("CreateDataControl failed\n", TVServiceAPI::CreateDataControl, PROFILE_MAIN, 0);
    if (!control)
        return;
    bool exist = false;
    control->CheckCaptionExist(exist);
    console::WriteLine(std::string("Caption exist:") + (exist ? "1" : "0"));
}
