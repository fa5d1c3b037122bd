// What menus print when signals arrive.
#include "debugutil/DebugUtil.h"
#include "host/simulator/Signals.h"
#include "support/Access.h"
#include "support/ConsoleScope.h"
#include "support/Match.h"
#include "support/Process.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <functional>
#include <glib.h>
#include <gtest/gtest.h>
#include <iostream>
#include <thread>

namespace
{

std::string NameOf(int type) { return TCDebugUtil::GetStringOfSignalType(static_cast<ESignalType>(type)); }

TEST(SignalNames, MatchTheTable)
{
    std::map<int, std::string> names;
    std::istringstream table(ReadFile(SIGNALS_PATH));
    for (int type = 0; table >> type;)
        table >> names[type];
    for (int type = -3; type < 3000; ++type)
        EXPECT_EQ(NameOf(type), names.count(type) > 0 ? names[type] : "UNKOWN[" + std::to_string(type) + "]")
            << "tests/unit/signals has another name for signal " << type;
    EXPECT_EQ(NameOf(INT_MIN), "UNKOWN[-2147483648]");
    EXPECT_EQ(NameOf(INT_MAX), "UNKOWN[2147483647]");
}

TEST(SignalNames, AreKeptForEachThread)
{
    const char* text = TCDebugUtil::GetStringOfSignalType(static_cast<ESignalType>(200));
    std::thread([] { EXPECT_EQ(NameOf(-1), "UNKOWN[-1]"); }).join();
    EXPECT_STREQ(text, "UNKOWN[200]");
}

constexpr auto kLast = static_cast<ESignalType>(9999);
std::atomic<int> g_settled{0};

template <class... Arguments> int Settled(ESignalType, Arguments...) { return ++g_settled, 0; }

void Raise(int type, const host::Pipeline& pipeline = {}, const TSSignalData& data = {})
{
    host::SignalHub::Instance().Raise(static_cast<ESignalType>(type), pipeline, data);
}

// Types words into a menu. Before each word it raises signals and waits until they are printed.
class SignalSession
{
public:
    SignalSession(const std::string& words, host::SignalCallback settled, const std::function<void()>& raise,
                  const std::string& scenario = "")
        : m_scope(host::ParseScenario("(test)", scenario)), m_settled(settled)
    {
        testing::internal::CaptureStderr();
        host::SignalHub::Instance().Subscribe(m_settled)->AddSignal(kLast, 0, 0, 0, 0);
        m_scope.Type(words);
        m_scope.onWord = [raise](const std::string&) {
            const int before = g_settled;
            raise();
            Raise(kLast);
            while (g_settled == before)
                std::this_thread::yield();
        };
    }
    ~SignalSession() { host::SignalHub::Instance().Unsubscribe(m_settled); }

    // Returns the errors of the callbacks, the printed signals and the ends of the subscriptions.
    std::string Printed()
    {
        std::string printed = testing::internal::GetCapturedStderr();
        const char* const line = "(?:\tSIGNAL_|\\[DebugUtil\\] Signal|TVServiceAPI::DestroySignal).*\n";
        for (const auto& found : Matches(m_scope.TakeRecord(), line))
            printed += found[0];
        return printed;
    }

private:
    ConsoleScope m_scope;
    host::SignalCallback m_settled;
};

TEST(SignalPrinters, OfTheTVSMenuPrintNames)
{
    SignalSession session("4 4 5 99", Settled<TSSignalData, void*>, [] {
        for (int type = 58; type < 68; ++type)
            Raise(type);
    });
    EXPECT_TRUE(TCDebugUtil::TVSDebugFunction());
    EXPECT_EQ(TCDebugUtil::SignalReceivedCallback(static_cast<ESignalType>(200), {}, nullptr), 0);
    std::string expected;
    for (const int type : {59, 60, 61, 62, 63, 66, 59, 60, 61, 62, 63, 66, 200})
        expected += "[DebugUtil] SignalReceivedCallback - signal:" + NameOf(type) + "\n";
    EXPECT_EQ(session.Printed(), expected);
}

// Pipelines and data of signals, and the texts that are printed for them.
struct Signals {
    host::Pipeline pipeline;
    std::uint64_t data; // the first eight bytes as a little-endian number
    const char *pipelineText, *started, *completed, *success;
};

const Signals kSignals[] = {
    {{PROFILE_SCAN, 65535}, 0x8887868584838281, "702, screenId: 65535, ", "-32127|-31613|-31099", "false", "true"},
    {{PROFILE_PIP, 32768}, 0xFFFFFFFFFFFFFFFF, "101, screenId: 32768, ", "-1|-1|-1", "false", "true"},
    {{static_cast<EProfile>(-2), 0}, 0x17FFF0100, "-2, screenId: 0, ", "256|32767|1", "false", "false"},
    {{PROFILE_MAIN, 1}, 0x0605040302010000, "1, screenId: 1, ", "0|513|1027", "true", "false"},
    {{PROFILE_MAIN, 0}, 1, "1, screenId: 0, ", "1|0|0", "false", "true"},
};

TEST(SignalPrinters, OfTheTPMSMenuPrintTheData)
{
    TCDebugMenuTPMS menu;
    std::string expected;
    const auto raise = [&] {
        for (const auto& [pipeline, bytes, pipelineText, started, completed, success] : kSignals) {
            TSSignalData data = {};
            data.bytes[8] = 0xFF; // belongs to no field
            for (int i = 0; i < 8; ++i)
                data.bytes[i] = static_cast<unsigned char>(bytes >> (8 * i));
            for (const int type : {81, 193, 194, 195, 59}) { // the last one is not printed
                (menu.*TSTestAccess::signalSubscriber)->AddSignal(static_cast<ESignalType>(type), 0, 0, 0, 0);
                Raise(type, pipeline, data);
            }
            const std::string text = std::string(" -> profile:") + pipelineText;
            expected += "\tSIGNAL_SI_STARTED" + text +
                        Replaced(started, R"((.+)\|(.+)\|(.+))", "chType:\\1, srvProfile:\\2, chNumber:\\3\n") +
                        "\tSIGNAL_TUNE_AROUND_SERVICE_DONE" + text + "serviceId: " + std::to_string(bytes) + "\n" +
                        "\tSIGNAL_TUNE_AROUND_FINISHED" + text + "completed: " + completed + "\n" +
                        "\tSIGNAL_BARKER_CHANNEL_TUNE" + text + "is success:" + success + "\n";
        }
    };
    SignalSession session("99 8 99", Settled<EProfile, unsigned short, TSSignalData, void*>, raise,
                          "[throw]\nIAVControl::RestartVideoDecoder=fault\n");
    for (const bool throws : {false, true, false}) {
        if (throws)
            EXPECT_THROW(menu.Enter(), std::runtime_error);
        else
            menu.Enter();
        expected += "TVServiceAPI::DestroySignalSubscriber()\n";
        Raise(SIGNAL_SI_STARTED); // no subscriber is left
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            ;
    }
    EXPECT_EQ(session.Printed(), expected);
}

} // namespace
