// Control objects of a pipeline.
#include "host/simulator/Controls.h"

#include <algorithm>

namespace host
{
namespace
{

class SourceControl : public Control<ISourceControl>
{
public:
    using Control::Control;

    int SetSource(ESource source, const std::string& options) override
    {
        return m_Succeed(Op::ISourceControl_SetSource, With(source, options),
                         [&](Outputs&) { m_tv.SetSource(m_pipeline, source, {}); });
    }
    int SetSource(ESource source, unsigned long long serviceId, const std::string& options) override
    {
        return m_Succeed(Op::ISourceControl_SetSource, With(source, serviceId, options),
                         [&](Outputs&) { m_tv.SetSource(m_pipeline, source, serviceId); });
    }
    int SetPreviewSource(ESource source, const std::string& options) override
    {
        return m_Succeed(Op::ISourceControl_SetPreviewSource, With(source, options),
                         [&](Outputs&) { m_tv.SetSource(m_pipeline, source, {}); });
    }
    int SetPreviewSource(ESource source, unsigned long long serviceId, const std::string& options) override
    {
        return m_Succeed(Op::ISourceControl_SetPreviewSource, With(source, serviceId, options),
                         [&](Outputs&) { m_tv.SetSource(m_pipeline, source, serviceId); });
    }
    int GetSource(ESource& source) override
    {
        return m_Succeed(Op::ISourceControl_GetSource, With(), [&](Outputs& outputs) {
            const auto found = m_tv.pipelines.find(m_pipeline);
            outputs.Write(source, found == m_tv.pipelines.end() ? SOURCE_TV : found->second.info.source);
        });
    }
    int StopCurrentSource() override { return m_Accept(Op::ISourceControl_StopCurrentSource); }
    int ReleaseDecoders() override { return m_Accept(Op::ISourceControl_ReleaseDecoders); }
    int ClaimPipeline() override { return m_Accept(Op::ISourceControl_ClaimPipeline); }
    int StartSourceMonitoring(ESource source) override
    {
        return m_Accept(Op::ISourceControl_StartSourceMonitoring, source);
    }
    int StopSourceMonitoring(ESource source) override
    {
        return m_Accept(Op::ISourceControl_StopSourceMonitoring, source);
    }
    int SetSoundOnVideoCall(bool on) override { return m_Accept(Op::ISourceControl_SetSoundOnVideoCall, on); }
    int StartHDMIAnalysis(ESource source) override { return m_Accept(Op::ISourceControl_StartHDMIAnalysis, source); }
    int StopHDMIAnalysis(ESource source) override { return m_Accept(Op::ISourceControl_StopHDMIAnalysis, source); }
};

class AVControl : public Control<IAVControl>
{
public:
    using Control::Control;

    int MuteVideo(int on) override { return m_Accept(Op::IAVControl_MuteVideo, on); }
    int MuteAudio(int on) override { return m_Accept(Op::IAVControl_MuteAudio, on); }
    int SetAnalogCleanView(bool on) override { return m_Accept(Op::IAVControl_SetAnalogCleanView, on); }
    int RestartVideoDecoder() override { return m_Accept(Op::IAVControl_RestartVideoDecoder); }
};

class VideoControl : public Control<IVideoControl>
{
public:
    using Control::Control;

    int SetVideoSize(int x, int y, int height, int width) override
    {
        return m_Accept(Op::IVideoControl_SetVideoSize, x, y, height, width);
    }
    int SetCropVideo(TSRectInfo source, TSRectInfo destination) override
    {
        return m_Accept(Op::IVideoControl_SetCropVideo, source, destination);
    }
    int SetWindowId(const int& windowId) override { return m_Accept(Op::IVideoControl_SetWindowId, windowId); }
};

class TunerControl : public Control<ITunerControl>
{
public:
    using Control::Control;

    int CheckTunerSignalState() override { return m_Accept(Op::ITunerControl_CheckTunerSignalState); }
};

class DataControl : public Control<IDataControl>
{
public:
    using Control::Control;

    int CheckCaptionExist(bool& exist) override
    {
        return m_Succeed(Op::IDataControl_CheckCaptionExist, With(),
                         [&](Outputs& outputs) { outputs.Write(exist, m_tv.Tv().captionExist); });
    }
};

class ReferenceCount : public Control<IReferenceCount>
{
public:
    using Control::Control;

    int GetReferenceCount(int& count) override
    {
        return m_tv.Call(Op::IReferenceCount_GetReferenceCount, With(), [&](Outputs& outputs) {
            const auto alive = std::count_if(m_tv.controls.begin(), m_tv.controls.end(), [&](const auto& control) {
                return control.second.pipeline == m_pipeline;
            });
            outputs.Write(count, static_cast<int>(alive));
            return 1;
        });
    }
};

class PipelineUtility : public Control<IPipelineUtility>
{
public:
    using Control::Control;

    int GetPIDSetStatus(bool& set) override
    {
        return m_Succeed(Op::IPipelineUtility_GetPIDSetStatus, With(),
                         [&](Outputs& outputs) { outputs.Write(set, m_tv.Tv().pidSetStatus); });
    }
    int GetCurrentTPMSStatus(TCTPMSStatus& status) override
    {
        return m_Succeed(Op::IPipelineUtility_GetCurrentTPMSStatus, With(), [&](Outputs&) {
            for (const auto& [pipeline, state] : m_tv.pipelines)
                status.pipelines[pipeline.Handle()] = state.info;
        });
    }
    int NotifyReceiverState(EStateChange kind, const std::string& application, int state,
                            const unsigned long long& serviceId) override
    {
        return m_tv.Call(Op::IPipelineUtility_NotifyReceiverState, With(kind, application, state, serviceId),
                         [&](Outputs&) {
                             const auto found = m_tv.registrations.find({kind, application});
                             if (found == m_tv.registrations.end())
                                 return 0;
                             found->second = true;
                             return 1;
                         });
    }
    int RegisterForStateChange(EStateChange kind, const std::string& application, int reserved) override
    {
        return m_tv.Call(Op::IPipelineUtility_RegisterForStateChange, With(kind, application, reserved), [&](Outputs&) {
            return m_tv.registrations.emplace(std::make_pair(kind, application), false).second ? 1 : 0;
        });
    }
    int UnregisterFromStateChange(EStateChange kind, const std::string& application) override
    {
        return m_tv.Call(Op::IPipelineUtility_UnregisterFromStateChange, With(kind, application), [&](Outputs&) {
            return static_cast<int>(m_tv.registrations.erase({kind, application}));
        });
    }
    int CheckPendingState(EStateChange kind, bool& pending) override
    {
        return m_tv.Call(Op::IPipelineUtility_CheckPendingState, With(kind), [&](Outputs& outputs) {
            outputs.Write(pending, std::any_of(m_tv.registrations.begin(), m_tv.registrations.end(),
                                               [kind](const auto& r) { return r.first.first == kind && !r.second; }));
            return 1;
        });
    }
};

} // namespace
} // namespace host

PIPELINE_FACTORY(SourceControl)
PIPELINE_FACTORY(AVControl)
PIPELINE_FACTORY(VideoControl)
PIPELINE_FACTORY(TunerControl)
PIPELINE_FACTORY(DataControl)
PIPELINE_FACTORY(ReferenceCount)
PIPELINE_FACTORY(PipelineUtility)
