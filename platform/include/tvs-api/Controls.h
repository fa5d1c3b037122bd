// Control interfaces of one pipeline. Every operation is synchronous, returns a number above 0 on success unless
// documented otherwise, and may throw std::exception when the TV service fails.
#pragma once

#include "tvs-api/ITvsSession.h"
#include "tvs-api/Records.h"

#include <string>
#include <vector>

/// Input source of a pipeline.
class ISourceControl : public ITvsSession
{
public:
    /// Switches the input. `options` are options of the source, empty for none.
    virtual int SetSource(ESource source, const std::string& options) = 0;
    /// Switches the input and, for the tuner, the service.
    virtual int SetSource(ESource source, unsigned long long serviceId, const std::string& options) = 0;
    /// Fills in the current input.
    virtual int GetSource(ESource& source) = 0;
    /// The same as SetSource, for a preview; 1 is success.
    virtual int SetPreviewSource(ESource source, const std::string& options) = 0;
    virtual int SetPreviewSource(ESource source, unsigned long long serviceId, const std::string& options) = 0;
    /// To use a pipeline that may be in use, call these three in order. Stops the current source.
    virtual int StopCurrentSource() = 0;
    /// Releases its decoders for the new source.
    virtual int ReleaseDecoders() = 0;
    /// Takes the pipeline from its current user.
    virtual int ClaimPipeline() = 0;
    /// Starts or stops monitoring the signal of an input that is not shown.
    virtual int StartSourceMonitoring(ESource source) = 0;
    virtual int StopSourceMonitoring(ESource source) = 0;
    /// Keeps the sound of the input on during a video call.
    virtual int SetSoundOnVideoCall(bool on) = 0;
    /// Starts or stops capturing an HDMI input for analysis.
    virtual int StartHDMIAnalysis(ESource source) = 0;
    virtual int StopHDMIAnalysis(ESource source) = 0;
};

/// Picture and sound of a pipeline.
class IAVControl : public ITvsSession
{
public:
    /// 0 is off, 1 is on.
    virtual int MuteVideo(int on) = 0;
    virtual int MuteAudio(int on) = 0;
    /// Noise reduction for analog services.
    virtual int SetAnalogCleanView(bool on) = 0;
    virtual int RestartVideoDecoder() = 0;
};

/// Video window of a pipeline.
class IVideoControl : public ITvsSession
{
public:
    /// In pixels; the height comes before the width.
    virtual int SetVideoSize(int x, int y, int height, int width) = 0;
    /// Shows the part `source` of the picture at `destination`.
    virtual int SetCropVideo(TSRectInfo source, TSRectInfo destination) = 0;
    /// Binds the video to a window of the compositor.
    virtual int SetWindowId(const int& windowId) = 0;
};

/// Zoom windows, which show an enlarged part of the picture. The TV service owns them; they outlive the control.
class IZoomControl : public ITvsSession
{
public:
    /// Fills in the id of the new window.
    virtual int CreateZoomWindow(int& handle, const TSRectInfo& source, const TSRectInfo& destination,
                                 const TSRectInfo& main) = 0;
    virtual int DeleteZoomWindow(const std::vector<int>& ids, const TSRectInfo& main) = 0;
    virtual int SetZoomWindow(std::vector<int> ids, bool on) = 0;
    virtual int MuteZoomWindow(std::vector<int> ids, bool mute) = 0;
    virtual int IsZoomWindowStarted(int windowId, bool& started) = 0;
    virtual int IsZoomWindowMuted(int windowId, bool& muted) = 0;
    virtual int UpdateZoomWindowSize(int windowId, const TSRectInfo& source, const TSRectInfo& destination,
                                     const TSRectInfo& main) = 0;
    /// Fills in the current rectangles of the window.
    virtual int GetZoomWindowSize(int windowId, TSRectInfo& source, TSRectInfo& destination, TSRectInfo& main) = 0;
    virtual int IsZoomAvailable(bool& available) = 0;
    virtual int GetZoomSharingAvailableType(int& type) = 0;
    /// Fills in the ids of all windows in ascending order.
    virtual int GetConnectedZoomWindows(std::vector<int>& ids) = 0;
};

class ITunerControl : public ITvsSession
{
public:
    /// Above 0 when the tuner has a signal.
    virtual int CheckTunerSignalState() = 0;
};

class IDataControl : public ITvsSession
{
public:
    /// Fills in whether the current service carries captions.
    virtual int CheckCaptionExist(bool& exist) = 0;
};

class IReferenceCount : public ITvsSession
{
public:
    /// Fills in the number of control objects of the pipeline.
    virtual int GetReferenceCount(int& count) = 0;
};

/// State of the pipelines, and the applications that take part in their changes. 1 is success.
class IPipelineUtility : public ITvsSession
{
public:
    /// Fills in whether the PIDs of the current service are set.
    virtual int GetPIDSetStatus(bool& set) = 0;
    /// Fills in the state of all pipelines.
    virtual int GetCurrentTPMSStatus(TCTPMSStatus& status) = 0;
    /// Reports that the application is ready for the change to this service.
    virtual int NotifyReceiverState(EStateChange kind, const std::string& application, int state,
                                    const unsigned long long& serviceId) = 0;
    /// The last value is reserved, 0.
    virtual int RegisterForStateChange(EStateChange kind, const std::string& application, int reserved) = 0;
    virtual int UnregisterFromStateChange(EStateChange kind, const std::string& application) = 0;
    /// Fills in whether a registered application has not notified yet.
    virtual int CheckPendingState(EStateChange kind, bool& pending) = 0;
};
