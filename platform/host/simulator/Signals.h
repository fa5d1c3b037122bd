// Subscriptions to the TV service's signals, and the threads that deliver them.
#pragma once

#include "host/simulator/Pipeline.h"
#include "tvs-api/TVServiceAPI.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <variant>
#include <vector>

namespace host
{

using SignalCallback = std::variant<TSignalCallback, TPipelineSignalCallback>;

/// Created on first use and never destroyed. All operations: any thread.
class SignalHub
{
public:
    static SignalHub& Instance();

    /// Returns the subscription of that callback, and creates it if there is none. Owned by the hub.
    ISignalSubscriber* Subscribe(SignalCallback callback);
    /// Ends the subscription. Waits while its callback runs on another thread.
    void Unsubscribe(SignalCallback callback);
    /// Ends all subscriptions and returns their number.
    std::size_t UnsubscribeAll();
    /// Queues the signal for every subscription that has its type. Data of the scenario for that type replaces `data`.
    void Raise(ESignalType type, const Pipeline& pipeline, const TSSignalData& data);

private:
    class Subscription;
    struct Event {
        std::shared_ptr<Subscription> subscription;
        ESignalType type;
        Pipeline pipeline;
        TSSignalData data;
    };

    SignalHub() = default;
    std::vector<std::shared_ptr<Subscription>>::iterator m_Find(const SignalCallback& callback);
    void m_StartDispatcher();
    void m_Dispatch();
    void m_WaitUntilDispatched();
    static int m_DispatchOnMainContext(void*);

    std::mutex m_mutex; // guards the members below and the types of all subscriptions
    std::vector<std::shared_ptr<Subscription>> m_subscriptions;
    std::deque<Event> m_ownEvents;  // for three-argument callbacks, on the dispatcher thread
    std::deque<Event> m_mainEvents; // for five-argument callbacks, on the default main context
    std::condition_variable m_raised;
    std::condition_variable m_dispatched;
    bool m_dispatcherStarted = false;
    bool m_dispatching = false;
};

} // namespace host
