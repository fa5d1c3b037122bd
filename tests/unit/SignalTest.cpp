// The thread that delivers signals to three-argument callbacks, also when a subscription or the process ends meanwhile.
#include "tvs-api/TVServiceAPI.h"

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <iostream>
#include <mutex>
#include <thread>

namespace
{

std::mutex g_mutex;
std::condition_variable g_arrived;
std::vector<int> g_received;
std::atomic<bool> g_ended{false};

int OnSignal(ESignalType type, TSSignalData, void*)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_received.push_back(type);
    g_arrived.notify_all();
    return 0;
}

int OnSignalSlowly(ESignalType type, TSSignalData data, void*)
{
    OnSignal(type, data, nullptr);
    std::this_thread::sleep_for(std::chrono::milliseconds(50)); // an end that does not wait comes within this time
    EXPECT_FALSE(g_ended);
    std::cerr << "delivered " << type << ".";
    return 0;
}

void Subscribe(TSignalCallback callback, std::initializer_list<ESignalType> types)
{
    ISignalSubscriber* subscriber = nullptr;
    EXPECT_EQ(TVServiceAPI::CreateSignalSubscriber(callback, &subscriber), 0);
    for (const ESignalType type : types)
        EXPECT_EQ(subscriber->AddSignal(type, 0, 1, 0, 0), 1);
}

// Raises signals 59 and 60, waits until `count` signals are delivered, and returns them.
std::vector<int> RaiseAndTake(std::size_t count)
{
    ISourceControl* control = nullptr;
    TVServiceAPI::CreateSourceControl(PROFILE_MAIN, 0, &control);
    control->SetSource(SOURCE_TV, "");
    std::unique_lock<std::mutex> lock(g_mutex);
    EXPECT_TRUE(g_arrived.wait_for(lock, std::chrono::seconds(10), [&] { return g_received.size() >= count; }));
    return std::exchange(g_received, {});
}

TEST(Signals, ArriveOnAThreadUntilTheirSubscriptionEnds)
{
    g_ended = false;
    Subscribe(OnSignalSlowly, {SIGNAL_TUNE_START});
    EXPECT_EQ(RaiseAndTake(1), (std::vector<int>{SIGNAL_TUNE_START}));
    TVServiceAPI::DestroySignalSubscriber(OnSignalSlowly); // waits for the callback
    g_ended = true;
    Subscribe(OnSignal, {SIGNAL_TUNE_START, SIGNAL_TUNE_SUCCESS});
    EXPECT_EQ(RaiseAndTake(2), (std::vector<int>{SIGNAL_TUNE_START, SIGNAL_TUNE_SUCCESS}));
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
}

TEST(SignalsDeathTest, AreDeliveredBeforeTheProcessEnds)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // run it in a new process
    const auto raise = [] {
        Subscribe(OnSignalSlowly, {SIGNAL_TUNE_START, SIGNAL_TUNE_SUCCESS});
        RaiseAndTake(1); // the second one is still in the queue
        std::exit(0);
    };
    EXPECT_EXIT(raise(), testing::ExitedWithCode(0), "delivered 59.delivered 60.");
}

} // namespace
