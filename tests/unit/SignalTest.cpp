// Subscriptions and the threads that deliver signals.
#include "tvs-api/TVServiceAPI.h"

#include <atomic>
#include <condition_variable>
#include <glib.h>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace
{

struct Received {
    int type;
    int profile;
    int screenId;
    std::thread::id thread;
};

std::mutex g_mutex;
std::condition_variable g_arrived;
std::vector<Received> g_received;
std::atomic<bool> g_subscribed{false};

void Note(const Received& received)
{
    EXPECT_TRUE(g_subscribed) << "a callback after the end of its subscription";
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_received.push_back(received);
    g_arrived.notify_all();
}

int OnSignal(ESignalType type, TSSignalData, void*)
{
    Note({type, 0, 0, std::this_thread::get_id()});
    return 0;
}

int OnPipelineSignal(ESignalType type, EProfile profile, unsigned short screenId, TSSignalData, void*)
{
    Note({type, profile, screenId, std::this_thread::get_id()});
    return 0;
}

// A main loop on the default context in a thread of its own; it quits itself, so that it cannot miss it.
class MainLoopThread
{
public:
    MainLoopThread() : m_loop(g_main_loop_new(nullptr, FALSE)), m_thread([loop = m_loop] { g_main_loop_run(loop); }) {}
    ~MainLoopThread()
    {
        const auto quit = [](gpointer loop) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
            return G_SOURCE_REMOVE;
        };
        g_idle_add(quit, m_loop);
        m_thread.join();
        g_main_loop_unref(m_loop);
    }
    std::thread::id Id() const { return m_thread.get_id(); }

private:
    GMainLoop* m_loop;
    std::thread m_thread;
};

std::vector<Received> WaitFor(std::size_t count)
{
    std::unique_lock<std::mutex> lock(g_mutex);
    EXPECT_TRUE(g_arrived.wait_for(lock, std::chrono::seconds(30), [&] { return g_received.size() >= count; }));
    return std::move(g_received);
}

// A source of 0 raises 59 and 60 on that pipeline.
void Raise(EProfile profile, int screenId)
{
    ISourceControl* control = nullptr;
    ASSERT_EQ(TVServiceAPI::CreateSourceControl(profile, screenId, &control), 0);
    EXPECT_EQ(control->SetSource(SOURCE_TV, ""), 1);
    TVServiceAPI::Destroy(control);
}

std::atomic<int> g_settled{0};

int OnSettled(ESignalType, TSSignalData, void*)
{
    ++g_settled;
    return 0;
}

// Raises once more and waits until that is delivered; whatever was to be delivered before it has been by then.
void RaiseAndSettle()
{
    ISignalSubscriber* subscriber = nullptr;
    ASSERT_EQ(TVServiceAPI::CreateSignalSubscriber(OnSettled, &subscriber), 0);
    subscriber->AddSignal(SIGNAL_TUNE_SUCCESS, 0, 1, 0, 0);
    const int before = g_settled;
    Raise(PROFILE_MAIN, 0);
    while (g_settled == before)
        std::this_thread::yield();
    TVServiceAPI::DestroySignalSubscriber(OnSettled);
}

template <class Callback> ISignalSubscriber* Subscribe(Callback callback)
{
    ISignalSubscriber* subscriber = nullptr;
    EXPECT_EQ(TVServiceAPI::CreateSignalSubscriber(callback, &subscriber), 0);
    g_subscribed = true;
    g_received.clear();
    return subscriber;
}

TEST(Signals, ReachASubscriptionThatIsKnownByItsCallback)
{
    Subscribe(OnSignal)->AddSignal(SIGNAL_TUNE_START, 0, 1, 0, 0);
    ISignalSubscriber* second = Subscribe(OnSignal);
    second->AddSignal(SIGNAL_TUNE_START, 0, 1, 0, 0); // counts once
    second->AddSignal(SIGNAL_TUNE_SUCCESS, 0, 1, 0, 0);
    Raise(PROFILE_MAIN, 0);
    const auto both = WaitFor(2);
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].type, SIGNAL_TUNE_START);
    EXPECT_EQ(both[1].type, SIGNAL_TUNE_SUCCESS);
    EXPECT_NE(both[0].thread, std::this_thread::get_id());

    Subscribe(OnSignal)->RemoveSignal(SIGNAL_TUNE_START, 1, 0, 0);
    Raise(PROFILE_MAIN, 0);
    EXPECT_EQ(WaitFor(1).at(0).type, SIGNAL_TUNE_SUCCESS);
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    g_subscribed = false;
    RaiseAndSettle();
}

TEST(Signals, ReachTheMainContextWithTheirPipeline)
{
    const MainLoopThread loop;
    Subscribe(OnPipelineSignal)->AddSignal(SIGNAL_TUNE_SUCCESS, 0, 702, 0, 0);
    Raise(PROFILE_PIP, 65535);
    const auto received = WaitFor(1);
    EXPECT_EQ(received[0].profile, PROFILE_PIP);
    EXPECT_EQ(received[0].screenId, 65535);
    EXPECT_EQ(received[0].thread, loop.Id());
    TVServiceAPI::DestroySignalSubscriber(OnPipelineSignal);
}

template <class Callback> void RaiseAndDestroy(Callback callback)
{
    for (int round = 0; round < 300; ++round) {
        ISignalSubscriber* subscriber = Subscribe(callback);
        subscriber->AddSignal(SIGNAL_TUNE_START, 0, 1, 0, 0);
        subscriber->AddSignal(SIGNAL_TUNE_SUCCESS, 0, 1, 0, 0);
        Raise(PROFILE_MAIN, round);
        if (round % 3 == 0)
            std::this_thread::yield();
        TVServiceAPI::DestroySignalSubscriber(callback);
        g_subscribed = false;
    }
}

TEST(Signals, NeverArriveAfterTheEndOfTheSubscription)
{
    const MainLoopThread loop;
    RaiseAndDestroy(OnSignal);
    RaiseAndDestroy(OnPipelineSignal);
}

std::atomic<int> g_calls{0};

int OnSignalEndItself(ESignalType, TSSignalData, void*)
{
    ++g_calls;
    TVServiceAPI::DestroySignalSubscriber(OnSignalEndItself);
    Note({});
    return 0;
}

TEST(Signals, MayEndTheirOwnSubscription)
{
    ISignalSubscriber* subscriber = Subscribe(OnSignalEndItself);
    subscriber->AddSignal(SIGNAL_TUNE_START, 0, 1, 0, 0);
    subscriber->AddSignal(SIGNAL_TUNE_SUCCESS, 0, 1, 0, 0);
    Raise(PROFILE_MAIN, 0);
    WaitFor(1);
    RaiseAndSettle();
    EXPECT_EQ(g_calls, 1);
}

} // namespace
