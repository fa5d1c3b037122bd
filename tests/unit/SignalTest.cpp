// Subscriptions of three-argument callbacks, and the thread that delivers to them.
#include "tvs-api/TVServiceAPI.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace
{

std::mutex g_mutex;
std::condition_variable g_arrived;
std::vector<int> g_received;
std::thread::id g_thread; // of the last delivery

int Note(int signal)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_received.push_back(signal);
    g_thread = std::this_thread::get_id();
    g_arrived.notify_all();
    return 0;
}

int OnSignal(ESignalType type, TSSignalData, void*) { return Note(type); }
int OnSignalToo(ESignalType type, TSSignalData, void*) { return Note(-type); }

template <class Callback> ISignalSubscriber* Subscribe(Callback callback, std::initializer_list<ESignalType> types = {})
{
    ISignalSubscriber* subscriber = nullptr;
    EXPECT_EQ(TVServiceAPI::CreateSignalSubscriber(callback, &subscriber), 0);
    for (const ESignalType type : types)
        EXPECT_EQ(subscriber->AddSignal(type, 0, 1, 0, 0), 1);
    return subscriber;
}

constexpr auto kStart = SIGNAL_TUNE_START, kSuccess = SIGNAL_TUNE_SUCCESS;

// Raises 59 and then 60.
void Raise()
{
    ISourceControl* control = nullptr;
    TVServiceAPI::CreateSourceControl(PROFILE_MAIN, 0, &control);
    control->SetSource(SOURCE_TV, "");
    TVServiceAPI::Destroy(control);
}

// What has been delivered, up to that one.
std::vector<int> TakeUntil(int last)
{
    std::unique_lock<std::mutex> lock(g_mutex);
    const auto there = [&] { return std::count(g_received.begin(), g_received.end(), last) > 0; };
    EXPECT_TRUE(g_arrived.wait_for(lock, std::chrono::seconds(10), there));
    return std::exchange(g_received, {});
}

TEST(Signals, ReachEverySubscriptionThatHasThem)
{
    ISignalSubscriber* first = Subscribe(OnSignal, {kStart, kStart});
    EXPECT_EQ(Subscribe(OnSignal, {kStart}), first); // known by its callback
    Subscribe(OnSignalToo, {kSuccess});
    Raise();
    EXPECT_EQ(TakeUntil(-60), (std::vector{59, -60}));
    EXPECT_NE(g_thread, std::this_thread::get_id());
    Subscribe(OnSignal, {kSuccess})->RemoveSignal(kStart, 1, 0, 0);
    Raise();
    EXPECT_EQ(TakeUntil(-60), (std::vector{60, -60}));
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    Subscribe(OnSignal); // begins anew
    Raise();
    EXPECT_EQ(TakeUntil(-60), (std::vector{-60}));
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    TVServiceAPI::DestroySignalSubscriber(OnSignalToo);
}

std::atomic<bool> g_ended{false};

int OnSignalForAWhile(ESignalType, TSSignalData, void*)
{
    Note(0);
    for (int i = 0; i < 30; ++i) { // long enough for an end that does not wait
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_FALSE(g_ended);
    }
    return 0;
}

int OnSignalEndItself(ESignalType type, TSSignalData, void*)
{
    TVServiceAPI::DestroySignalSubscriber(OnSignalEndItself);
    return Note(-type);
}

int OnSignalThrow(ESignalType type, TSSignalData, void*) { throw std::runtime_error(std::to_string(type)); }

TEST(Signals, EndWithTheirSubscriptionAndSurviveTheirCallbacks)
{
    testing::internal::CaptureStderr();
    Subscribe(OnSignalForAWhile, {kStart});
    Subscribe(OnSignalEndItself, {kStart, kSuccess});
    Subscribe(OnSignalThrow, {kStart, kSuccess});
    Subscribe(OnSignal, {kSuccess});
    Raise();
    EXPECT_EQ(TakeUntil(0), (std::vector{0}));
    TVServiceAPI::DestroySignalSubscriber(OnSignalForAWhile);
    g_ended = true;
    EXPECT_EQ(TakeUntil(60), (std::vector{-59, 60}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "signal callback: 59\nsignal callback: 60\n");
    TVServiceAPI::DestroySignalSubscriber(OnSignalThrow);
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
}

int OnSignalHang(ESignalType, TSSignalData, void*)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    for (std::fputs("told", stderr);;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}

TEST(SignalsDeathTest, AreToldAtTheEndAndDoNotKeepTheProcess)
{
    const auto end = [] {
        Subscribe(OnSignalHang, {kStart});
        Raise();
        std::exit(0);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "^told$");
}

} // namespace
