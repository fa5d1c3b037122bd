// The entry to the TV service: factories for its control objects, and signal subscriptions.
#pragma once

#include "tvs-api/Controls.h"
#include "tvs-api/Services.h"

/// Receives signals on a thread of the library. Returns 0.
using TSignalCallback = int (*)(ESignalType type, TSSignalData data, void* userData);
/// Receives signals and their pipeline on the default GLib main context. Returns 0.
using TPipelineSignalCallback = int (*)(ESignalType type, EProfile profile, unsigned short screenId, TSSignalData data,
                                        void* userData);

/// A subscription; at first without signals. The reserved numbers are 0.
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
    // A factory writes an object and returns 0. Any other result is a failure, and so is a null object. The caller
    // releases the object with Destroy, also after a failure that wrote one. A factory with a profile and a screen id
    // creates the object for that pipeline.
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

    /// Writes the subscriber of that callback, and creates it if there is none. The TV service owns it. Returns 0 on
    /// success.
    static int CreateSignalSubscriber(TSignalCallback callback, ISignalSubscriber** subscriber);
    static int CreateSignalSubscriber(TPipelineSignalCallback callback, ISignalSubscriber** subscriber);
    /// Ends the subscription of that callback and destroys its subscriber. After it returns, the callback is not
    /// running (unless it made this call) and will not run again.
    static void DestroySignalSubscriber(TSignalCallback callback);
    static void DestroySignalSubscriber(TPipelineSignalCallback callback);

    /// Releases a control object.
    static void Destroy(ITvsSession* session);
};
