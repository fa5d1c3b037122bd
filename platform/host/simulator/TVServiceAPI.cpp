// Signal subscriptions, and the release of control objects.
#include "tvs-api/TVServiceAPI.h"

#include "host/simulator/Signals.h"
#include "host/simulator/Simulator.h"

namespace
{

using host::Op;
using host::Outputs;
using host::With;

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
    host::Simulator& simulator = host::Simulator::Instance();
    const std::string name = simulator.InterfaceOf(session);
    simulator.Call(Op::TVServiceAPI_Destroy, With(host::Bare{name.c_str()}),
                   [&](Outputs&) { simulator.controls.erase(session); });
}
