// Commands of the main menu that have no menu of their own.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

void TCDebugMenuTPMS::m_GetCurrentTPMSStatus()
{
    if (const auto utility = tpms::CreatePipelineUtility()) {
        TCTPMSStatus status;
        utility->GetCurrentTPMSStatus(status);
    }
}

void TCDebugMenuTPMS::m_SetTvModeToDigitalAir()
{
    const auto navigation = tpms::CreateServiceNavigation();
    if (navigation && navigation->SetTvMode({ANTENNA_MODE_AIR, SERVICE_MODE_DTV}, "") <= 0)
        console::Write(" SetTVMode failed!");
}

void TCDebugMenuTPMS::m_RestartVideoDecoder()
{
    if (const auto control = CreateControl(nullptr, TVServiceAPI::CreateAVControl, PROFILE_MAIN, 0))
        control->RestartVideoDecoder();
}

void TCDebugMenuTPMS::m_CheckTunerSignalState()
{
    const auto tuner = CreateControl("CreateTunerControl failed\n", TVServiceAPI::CreateTunerControl, PROFILE_MAIN, 0);
    if (tuner)
        console::WriteLine(tuner->CheckTunerSignalState() > 0 ? " CheckTunerSignalState Success!"
                                                              : " CheckTunerSignalState failed!");
}

void TCDebugMenuTPMS::m_PrintLatestServices()
{
    const auto navigation = CreateControl(nullptr, TVServiceAPI::CreateServiceNavigation, PROFILE_MAIN, 0);
    if (!navigation)
        return;
    const TSTvMode cable(ANTENNA_MODE_CABLE, SERVICE_MODE_DTV);
    const TSTvMode air(ANTENNA_MODE_AIR, SERVICE_MODE_DTV);
    unsigned long long serviceId = INVALID_SERVICE_ID; // a query that finds none leaves the id of the query before it
    const auto print = [&serviceId](const std::string& label) {
        console::WriteLine(label + std::to_string(serviceId));
    };
    navigation->GetLatestRFServiceId(serviceId, cable);
    print("[RF][CABLE] serviceId ");
    navigation->GetLatestVelunaServiceId(serviceId, cable);
    print("[VELUNA][CABLE] serviceId ");
    navigation->GetLatestRFServiceId(serviceId, air);
    print("[RF][AIR] serviceId ");
    navigation->GetLatestVelunaServiceId(serviceId, air);
    print("[VELUNA][AIR] serviceId ");
}
