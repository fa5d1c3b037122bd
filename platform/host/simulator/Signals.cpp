#include "host/simulator/Signals.h"

#include "host/call/Operation.h"
#include "host/call/StandardStreams.h"
#include "host/call/Text.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <glib.h>
#include <set>
#include <string>
#include <thread>

namespace host
{
constexpr std::chrono::seconds kExitFlushTimeout(1); // limits the wait for a callback that hangs

class SignalHub::Subscription : public ISignalSubscriber
{
public:
    explicit Subscription(SignalCallback callback) : m_callback(callback) {}

    int AddSignal(ESignalType type, int reserved1, int profile, int reserved2, int reserved3) override
    {
        return Operation(Op::ISignalSubscriber_AddSignal, With(type, reserved1, profile, reserved2, reserved3),
                         [&](Outputs&) {
                             const std::lock_guard<std::mutex> lock(Instance().m_mutex);
                             m_types.insert(type);
                             return 1;
                         });
    }

    int RemoveSignal(ESignalType type, int profile, int reserved1, int reserved2) override
    {
        return Operation(Op::ISignalSubscriber_RemoveSignal, With(type, profile, reserved1, reserved2), [&](Outputs&) {
            const std::lock_guard<std::mutex> lock(Instance().m_mutex);
            m_types.erase(type);
            return 1;
        });
    }

    const SignalCallback& Callback() const { return m_callback; }
    /// The caller holds the hub's mutex.
    bool Has(ESignalType type) const { return m_types.count(type) > 0; }

    void Deliver(const Event& event)
    {
        const std::lock_guard<std::recursive_mutex> lock(m_running);
        if (!m_alive)
            return;
        try {
            const auto* own = std::get_if<TSignalCallback>(&m_callback);
            const TVSHandle handle = event.pipeline.Handle();
            const int result = own != nullptr ? (*own)(event.type, event.data, nullptr)
                                              : std::get<TPipelineSignalCallback>(m_callback)(
                                                    event.type, handle.profile, handle.screenId, event.data, nullptr);
            if (result != 0)
                throw std::runtime_error("returned " + std::to_string(result));
        } catch (const std::exception& error) {
            PrintError(OneLine(std::string("signal callback: ") + error.what()));
        }
    }

    void End()
    {
        const std::lock_guard<std::recursive_mutex> lock(m_running);
        m_alive = false;
    }

private:
    const SignalCallback m_callback;
    std::set<ESignalType> m_types;
    std::recursive_mutex m_running; // held during the callback; recursive because the callback may end its subscription
    bool m_alive = true;
};

SignalHub& SignalHub::Instance()
{
    static SignalHub& hub = *new SignalHub;
    return hub;
}

std::vector<std::shared_ptr<SignalHub::Subscription>>::iterator SignalHub::m_Find(const SignalCallback& callback)
{
    return std::find_if(m_subscriptions.begin(), m_subscriptions.end(),
                        [&](const auto& subscription) { return subscription->Callback() == callback; });
}

ISignalSubscriber* SignalHub::Subscribe(SignalCallback callback)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_Find(callback);
    if (found != m_subscriptions.end())
        return found->get();
    return m_subscriptions.emplace_back(std::make_shared<Subscription>(callback)).get();
}

void SignalHub::Unsubscribe(SignalCallback callback)
{
    std::shared_ptr<Subscription> ended;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_Find(callback);
        if (found == m_subscriptions.end())
            return;
        ended = std::move(*found);
        m_subscriptions.erase(found);
    }
    ended->End(); // without the mutex: it waits for the callback, which may use the hub
}

std::size_t SignalHub::UnsubscribeAll()
{
    std::vector<std::shared_ptr<Subscription>> ended;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ended.swap(m_subscriptions);
    }
    for (const auto& subscription : ended)
        subscription->End();
    return ended.size();
}

void SignalHub::Raise(ESignalType type, const Pipeline& pipeline, const TSSignalData& data)
{
    const auto& dataByType = Host::Instance().scenario.signals;
    const auto found = dataByType.find(type);
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& subscription : m_subscriptions) {
        if (!subscription->Has(type))
            continue;
        const bool own = std::holds_alternative<TSignalCallback>(subscription->Callback());
        (own ? m_ownEvents : m_mainEvents)
            .push_back({subscription, type, pipeline, found == dataByType.end() ? data : found->second});
        if (own) {
            m_StartDispatcher();
            m_raised.notify_one();
        } else {
            g_idle_add_full(G_PRIORITY_DEFAULT, m_DispatchOnMainContext, nullptr, nullptr);
        }
    }
}

void SignalHub::m_StartDispatcher()
{
    if (m_dispatcherStarted)
        return;
    std::thread([this] { m_Dispatch(); }).detach();
    // At exit, queued signals are still delivered, unless that takes too long.
    std::atexit([] { Instance().m_WaitUntilDispatched(); });
    m_dispatcherStarted = true;
}

void SignalHub::m_Dispatch()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_raised.wait(lock, [this] { return !m_ownEvents.empty(); });
        const Event event = std::move(m_ownEvents.front());
        m_ownEvents.pop_front();
        m_dispatching = true;
        lock.unlock();
        event.subscription->Deliver(event);
        lock.lock();
        m_dispatching = false;
        m_dispatched.notify_all();
    }
}

void SignalHub::m_WaitUntilDispatched()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_dispatched.wait_for(lock, kExitFlushTimeout, [this] { return m_ownEvents.empty() && !m_dispatching; });
}

int SignalHub::m_DispatchOnMainContext(void*)
{
    SignalHub& hub = Instance();
    std::unique_lock<std::mutex> lock(hub.m_mutex);
    const Event event = std::move(hub.m_mainEvents.front());
    hub.m_mainEvents.pop_front();
    lock.unlock();
    event.subscription->Deliver(event);
    return G_SOURCE_REMOVE;
}

} // namespace host
