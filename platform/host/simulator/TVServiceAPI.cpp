// The factories of the TV service.
#include "tvs-api/TVServiceAPI.h"

#include "host/simulator/Controls.h"
#include "host/simulator/Signals.h"

namespace
{

using host::Op;
using host::Outputs;
using host::Simulator;
using host::With;

template <class Interface>
void HandOut(std::unique_ptr<Interface> object, const char* interfaceName, std::optional<host::Pipeline> pipeline,
             Interface** written)
{
    *written = object.get();
    const ITvsSession* key = object.get();
    Simulator::Instance().controls[key] = {std::move(object), interfaceName, pipeline};
}

template <class Interface>
int Create(Op operation, const char* interfaceName, EProfile profile, int screenId,
           std::unique_ptr<Interface> (*make)(const host::Pipeline&), Interface** written)
{
    return Simulator::Instance().Call(operation, With(profile, screenId), [&](Outputs&) {
        const host::Pipeline pipeline{profile, screenId};
        HandOut(make(pipeline), interfaceName, pipeline, written);
        return 0;
    });
}

template <class Interface>
int Create(Op operation, const char* interfaceName, std::unique_ptr<Interface> (*make)(), Interface** written)
{
    return Simulator::Instance().Call(operation, With(), [&](Outputs&) {
        HandOut(make(), interfaceName, std::nullopt, written);
        return 0;
    });
}

int Subscribe(host::SignalCallback callback, ISignalSubscriber** subscriber)
{
    return host::Operation(Op::TVServiceAPI_CreateSignalSubscriber, With(), [&](Outputs&) {
        *subscriber = host::SignalHub::Instance().Subscribe(callback);
        return 0;
    });
}

void Unsubscribe(host::SignalCallback callback)
{
    host::Operation(Op::TVServiceAPI_DestroySignalSubscriber, With(),
                    [&](Outputs&) { host::SignalHub::Instance().Unsubscribe(callback); });
}

} // namespace

int TVServiceAPI::CreateService(IService** service)
{
    return Create(Op::TVServiceAPI_CreateService, "IService", host::MakeService, service);
}

int TVServiceAPI::CreateServiceNavigation(EProfile profile, int screenId, IServiceNavigation** navigation)
{
    return Create(Op::TVServiceAPI_CreateServiceNavigation, "IServiceNavigation", profile, screenId,
                  host::MakeServiceNavigation, navigation);
}

int TVServiceAPI::CreateSourceControl(EProfile profile, int screenId, ISourceControl** control)
{
    return Create(Op::TVServiceAPI_CreateSourceControl, "ISourceControl", profile, screenId, host::MakeSourceControl,
                  control);
}

int TVServiceAPI::CreateAVControl(EProfile profile, int screenId, IAVControl** control)
{
    return Create(Op::TVServiceAPI_CreateAVControl, "IAVControl", profile, screenId, host::MakeAVControl, control);
}

int TVServiceAPI::CreateVideoControl(EProfile profile, int screenId, IVideoControl** control)
{
    return Create(Op::TVServiceAPI_CreateVideoControl, "IVideoControl", profile, screenId, host::MakeVideoControl,
                  control);
}

int TVServiceAPI::CreateZoomControl(EProfile profile, int screenId, IZoomControl** control)
{
    return Create(Op::TVServiceAPI_CreateZoomControl, "IZoomControl", profile, screenId, host::MakeZoomControl,
                  control);
}

int TVServiceAPI::CreateTunerControl(EProfile profile, int screenId, ITunerControl** control)
{
    return Create(Op::TVServiceAPI_CreateTunerControl, "ITunerControl", profile, screenId, host::MakeTunerControl,
                  control);
}

int TVServiceAPI::CreateScanControl(IScanControl** control)
{
    return Create(Op::TVServiceAPI_CreateScanControl, "IScanControl", host::MakeScanControl, control);
}

int TVServiceAPI::CreateServiceGuide(IServiceGuide** guide)
{
    return Create(Op::TVServiceAPI_CreateServiceGuide, "IServiceGuide", host::MakeServiceGuide, guide);
}

int TVServiceAPI::CreateDataControl(EProfile profile, int screenId, IDataControl** control)
{
    return Create(Op::TVServiceAPI_CreateDataControl, "IDataControl", profile, screenId, host::MakeDataControl,
                  control);
}

int TVServiceAPI::CreateReferenceCount(EProfile profile, int screenId, IReferenceCount** count)
{
    return Create(Op::TVServiceAPI_CreateReferenceCount, "IReferenceCount", profile, screenId, host::MakeReferenceCount,
                  count);
}

int TVServiceAPI::CreatePipelineUtility(EProfile profile, int screenId, IPipelineUtility** utility)
{
    return Create(Op::TVServiceAPI_CreatePipelineUtility, "IPipelineUtility", profile, screenId,
                  host::MakePipelineUtility, utility);
}

int TVServiceAPI::CreateSignalSubscriber(TSignalCallback callback, ISignalSubscriber** subscriber)
{
    return Subscribe(callback, subscriber);
}

int TVServiceAPI::CreateSignalSubscriber(TPipelineSignalCallback callback, ISignalSubscriber** subscriber)
{
    return Subscribe(callback, subscriber);
}

void TVServiceAPI::DestroySignalSubscriber(TSignalCallback callback) { Unsubscribe(callback); }

void TVServiceAPI::DestroySignalSubscriber(TPipelineSignalCallback callback) { Unsubscribe(callback); }

void TVServiceAPI::Destroy(ITvsSession* session)
{
    Simulator& tv = Simulator::Instance();
    const host::Bare name{tv.InterfaceOf(session)};
    tv.Call(Op::TVServiceAPI_Destroy, With(name), [&](Outputs&) { tv.controls.erase(session); });
}
