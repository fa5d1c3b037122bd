// The entry to the TV service: factories for its control objects, and signal subscriptions.
#pragma once

#include "tvs-api/Controls.h"
#include "tvs-api/Services.h"

/// Receives signals on a thread of the library's own; returns 0.
using TSignalCallback = int (*)(ESignalType type, TSSignalData data, void* userData);
/// Receives signals with their pipeline on the default GLib main context; returns 0.
using TPipelineSignalCallback = int (*)(ESignalType type, EProfile profile, unsigned short screenId, TSSignalData data,
                                        void* userData);

/// A subscription; it carries no signal until one is added. The numbers around the profile are reserved, 0.
class ISignalSubscriber
{
public:
    virtual ~ISignalSubscriber() = default;
    virtual int AddSignal(ESignalType type, int reserved1, int profile, int reserved2, int reserved3) = 0;
    virtual int RemoveSignal(ESignalType type, int profile, int reserved1, int reserved2) = 0;
};

class TVServiceAPI
{
public:
    // Each factory returns 0 and writes an object that the caller releases with Destroy. Any other result, and a
    // pointer left null, is failure; an object written all the same is the caller's to release. Those with a
    // profile and a screen id make an object for that pipeline.
    static int CreateService(IService** service);
    static int CreateServiceNavigation(EProfile profile, int screenId, IServiceNavigation** navigation);
    static int CreateSourceControl(EProfile profile, int screenId, ISourceControl** control);
    static int CreateAVControl(EProfile profile, int screenId, IAVControl** control);
    static int CreateVideoControl(EProfile profile, int screenId, IVideoControl** control);
    static int CreateZoomControl(EProfile profile, int screenId, IZoomControl** control);
    static int CreateTunerControl(EProfile profile, int screenId, ITunerControl** control);
    static int CreateScanControl(IScanControl** control);
    static int CreateServiceGuide(IServiceGuide** guide);
    static int CreateDataControl(EProfile profile, int screenId, IDataControl** control);
    static int CreateReferenceCount(EProfile profile, int screenId, IReferenceCount** count);
    static int CreatePipelineUtility(EProfile profile, int screenId, IPipelineUtility** utility);

    /// Opens the subscription of that callback, or joins the one that it has. The subscriber belongs to the TV
    /// service. 0 is success.
    static int CreateSignalSubscriber(TSignalCallback callback, ISignalSubscriber** subscriber);
    static int CreateSignalSubscriber(TPipelineSignalCallback callback, ISignalSubscriber** subscriber);
    /// Ends the subscription of that callback and its subscribers: when this returns the callback is not running
    /// and will not run again (unless it is the callback itself that calls).
    static void DestroySignalSubscriber(TSignalCallback callback);
    static void DestroySignalSubscriber(TPipelineSignalCallback callback);

    /// Releases a control object.
    static void Destroy(ITvsSession* session);
};
