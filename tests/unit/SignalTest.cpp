// Subscriptions of three-argument callbacks, and the thread that delivers to them.
#include "tvs-api/TVServiceAPI.h"

#include <algorithm>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace
{

constexpr auto kStart = SIGNAL_TUNE_START, kSuccess = SIGNAL_TUNE_SUCCESS;

std::mutex g_mutex;
std::condition_variable g_arrived;
std::vector<int> g_received;
bool g_ended = false;

int Note(int signal)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_received.push_back(signal);
    g_arrived.notify_all();
    return 0;
}

int OnSignal(ESignalType type, TSSignalData, void*) { return Note(type); }
int OnSignalToo(ESignalType type, TSSignalData, void*) { return Note(-type); }
int OnSignalThrow(ESignalType type, TSSignalData, void*) { throw std::runtime_error(std::to_string(type)); }

int OnSignalForAWhile(ESignalType, TSSignalData, void*)
{
    Note(0);
    std::this_thread::sleep_for(std::chrono::milliseconds(30)); // long enough for an end that does not wait
    const std::lock_guard<std::mutex> lock(g_mutex);
    EXPECT_FALSE(g_ended);
    return 0;
}

int OnSignalEndItself(ESignalType type, TSSignalData, void*)
{
    TVServiceAPI::DestroySignalSubscriber(OnSignalEndItself);
    return Note(-type);
}

int OnSignalHang(ESignalType, TSSignalData, void*)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    for (std::fputs("told", stderr);;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}

ISignalSubscriber* Subscribe(TSignalCallback callback, std::initializer_list<ESignalType> types)
{
    ISignalSubscriber* subscriber = nullptr;
    EXPECT_EQ(TVServiceAPI::CreateSignalSubscriber(callback, &subscriber), 0);
    for (const ESignalType type : types)
        EXPECT_EQ(subscriber->AddSignal(type, 0, 1, 0, 0), 1);
    return subscriber;
}

// Raises 59 and then 60, and takes what is delivered up to that one.
std::vector<int> RaiseAndTakeUntil(int last)
{
    ISourceControl* control = nullptr;
    TVServiceAPI::CreateSourceControl(PROFILE_MAIN, 0, &control);
    control->SetSource(SOURCE_TV, "");
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
    EXPECT_EQ(RaiseAndTakeUntil(-60), (std::vector{59, -60}));
    Subscribe(OnSignal, {kSuccess})->RemoveSignal(kStart, 1, 0, 0);
    EXPECT_EQ(RaiseAndTakeUntil(-60), (std::vector{60, -60}));
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    Subscribe(OnSignal, {}); // begins anew
    EXPECT_EQ(RaiseAndTakeUntil(-60), (std::vector{-60}));
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
    TVServiceAPI::DestroySignalSubscriber(OnSignalToo);
}

TEST(Signals, EndWithTheirSubscriptionAndSurviveTheirCallbacks)
{
    g_ended = false;
    testing::internal::CaptureStderr();
    Subscribe(OnSignalForAWhile, {kStart});
    EXPECT_EQ(RaiseAndTakeUntil(0), (std::vector{0}));
    TVServiceAPI::DestroySignalSubscriber(OnSignalForAWhile); // waits for it
    {
        const std::lock_guard<std::mutex> lock(g_mutex);
        g_ended = true;
    }
    Subscribe(OnSignalEndItself, {kStart, kSuccess});
    Subscribe(OnSignalThrow, {kStart, kSuccess});
    Subscribe(OnSignal, {kSuccess});
    EXPECT_EQ(RaiseAndTakeUntil(60), (std::vector{-59, 60}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "signal callback: 59\nsignal callback: 60\n");
    TVServiceAPI::DestroySignalSubscriber(OnSignalThrow);
    TVServiceAPI::DestroySignalSubscriber(OnSignal);
}

TEST(SignalsDeathTest, AreToldAtTheEndAndDoNotKeepTheProcess)
{
    const auto end = [] {
        Subscribe(OnSignal, {kStart});
        Subscribe(OnSignalHang, {kStart});
        RaiseAndTakeUntil(59);
        std::exit(0);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "^told$");
}

} // namespace
