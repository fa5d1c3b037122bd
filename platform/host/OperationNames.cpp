#include "OperationNames.h"

#include <algorithm>
#include <iterator>

namespace host
{
namespace
{

constexpr std::string_view kOperations[] = {
    "IAVControl::MuteAudio",
    "IAVControl::MuteVideo",
    "IAVControl::RestartVideoDecoder",
    "IAVControl::SetAnalogCleanView",
    "IDataControl::CheckCaptionExist",
    "IPipelineUtility::CheckPendingState",
    "IPipelineUtility::GetCurrentTPMSStatus",
    "IPipelineUtility::GetPIDSetStatus",
    "IPipelineUtility::NotifyReceiverState",
    "IPipelineUtility::RegisterForStateChange",
    "IPipelineUtility::UnregisterFromStateChange",
    "IReferenceCount::GetReferenceCount",
    "IScanControl::IsBarkerChannelScanAvailable",
    "IScanControl::IsTuneAroundNeeded",
    "IScanControl::StartBarkerChannelScan",
    "IScanControl::StartTuneAround",
    "IScanControl::StopBarkerChannelScan",
    "IScanControl::StopManualScan",
    "IService::FindService",
    "IServiceGuide::GetProgram",
    "IServiceNavigation::FindServices",
    "IServiceNavigation::GetLatestRFServiceId",
    "IServiceNavigation::GetLatestVelunaServiceId",
    "IServiceNavigation::GetTvMode",
    "IServiceNavigation::SetBootupService",
    "IServiceNavigation::SetDTVMode",
    "IServiceNavigation::SetService",
    "IServiceNavigation::SetTvMode",
    "ISignalSubscriber::AddSignal",
    "ISignalSubscriber::RemoveSignal",
    "ISourceControl::ClaimPipeline",
    "ISourceControl::GetSource",
    "ISourceControl::ReleaseDecoders",
    "ISourceControl::SetPreviewSource",
    "ISourceControl::SetSoundOnVideoCall",
    "ISourceControl::SetSource",
    "ISourceControl::StartHDMIAnalysis",
    "ISourceControl::StartSourceMonitoring",
    "ISourceControl::StopCurrentSource",
    "ISourceControl::StopHDMIAnalysis",
    "ISourceControl::StopSourceMonitoring",
    "ITunerControl::CheckTunerSignalState",
    "IVideoControl::SetCropVideo",
    "IVideoControl::SetVideoSize",
    "IVideoControl::SetWindowId",
    "IZoomControl::CreateZoomWindow",
    "IZoomControl::DeleteZoomWindow",
    "IZoomControl::GetConnectedZoomWindows",
    "IZoomControl::GetZoomSharingAvailableType",
    "IZoomControl::GetZoomWindowSize",
    "IZoomControl::IsZoomAvailable",
    "IZoomControl::IsZoomWindowMuted",
    "IZoomControl::IsZoomWindowStarted",
    "IZoomControl::MuteZoomWindow",
    "IZoomControl::SetZoomWindow",
    "IZoomControl::UpdateZoomWindowSize",
    "TCApiPrintMessage",
    "TCMarshallingHelperProxy::Run",
    "TVServiceAPI::CreateAVControl",
    "TVServiceAPI::CreateDataControl",
    "TVServiceAPI::CreatePipelineUtility",
    "TVServiceAPI::CreateReferenceCount",
    "TVServiceAPI::CreateScanControl",
    "TVServiceAPI::CreateService",
    "TVServiceAPI::CreateServiceGuide",
    "TVServiceAPI::CreateServiceNavigation",
    "TVServiceAPI::CreateSignalSubscriber",
    "TVServiceAPI::CreateSourceControl",
    "TVServiceAPI::CreateTunerControl",
    "TVServiceAPI::CreateVideoControl",
    "TVServiceAPI::CreateZoomControl",
    "TVServiceAPI::Destroy",
    "TVServiceAPI::DestroySignalSubscriber",
    "_TCApiAssert",
    "vconf_get_int",
};

} // namespace

bool IsOperation(std::string_view name)
{
    return std::find(std::begin(kOperations), std::end(kOperations), name) != std::end(kOperations);
}

bool IsFactory(std::string_view name)
{
    constexpr std::string_view prefix = "TVServiceAPI::Create";
    return name.substr(0, prefix.size()) == prefix;
}

} // namespace host
