// What is printed of the signals that arrive while a menu has the console.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugUtil.h"
#include "host/simulator/Signals.h"
#include "support/Television.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <functional>
#include <glib.h>
#include <gtest/gtest.h>
#include <iostream>
#include <regex>
#include <thread>

namespace
{

// The names without their prefix; behind a number stand those of that signal and of the ones that follow it.
const char* const kNames =
    "16 SEARCH_CHANNEL CHANNEL_FOUND SEARCH_CHANNEL_DONE SEARCH_OPTION_CHANGE SEARCH_SERVICE_LIST_FULL "
    "SERVICE_LIST_CHANGED DIGITURK_AUTO_TUNING_RESULT EPG_COMPLETED PROGRAM_CHANGED EXT_SOURCE_CHANGE_START "
    "EXT_SOURCE_SIGNAL_OK EXT_SOURCE_NOT_SUPPORT EXT_SOURCE_NO_SIGNAL EXT_SOURCE_UNPLUG EXT_SOURCE_STOP "
    "PVR_SYSTEM_EVENT RATING_CHANGED CHANNEL_SCRAMBLED_FOUND SEARCH_SCRAMBLE SEARCH_SCRAMBLE_DONE "
    "48 RECV_CURRENT_EVENT 59 TUNE_START TUNE_SUCCESS TUNER_LOCK_FAIL SERVICE_LOCKED TUNE_STOP SIGNAL_STRENGTH "
    "CHANGE_TV_MODE RESOLUTION_CHANGED CAPTION_DESCRIPTOR SI_TIME_OUT 70 TUNE_PREPARATION TUNE_ABANDONED "
    "TUNE_WEAK_SIGNAL 74 MTS_CHANGED TVS_ACTIVATE TVS_DEACTIVATE 78 DELIVERY_SYSTEM_CHANGED PRESENT_EIT_CHANGED "
    "FOLLOWING_EIT_CHANGED SI_STARTED PICTURE_SIZE_CHANGE COUNTRY_CHANGED SEARCH_HOMING_CHANNEL_DONE PES_CHANGED "
    "87 LOCK_SUCCESS KORLIX_CONNECTED_CHANGE KORLIX_PANEL_OFF_CHANGE VSI_3D_CHANGE UNMUTE_VIDEO "
    "NEW_TRANSPONDERS_DETECTED BAT_CHANGED RECEIVED_MATCHED_3DCHANNEL DATA_SERVICE SCRAMBLED_SERVICE CLEAR_SERVICE "
    "NOT_AVAILABLE_SERVICE TUNE_FOR_FEEDING_SI CI_VIDEODEC_ERROR_DETECT RATING_CHANGED_FROM_GUIDE MAJOR_TUNE "
    "2817 PICTURE_SIZE_CHANGE_AFD";

std::string NameOf(int type) { return TCDebugUtil::GetStringOfSignalType(static_cast<ESignalType>(type)); }

TEST(SignalNames, AreThoseOfTheTable)
{
    std::map<int, std::string> names;
    std::istringstream words(kNames);
    int next = 0;
    for (std::string word; words >> word;) {
        if (const int number = std::atoi(word.c_str()))
            next = number;
        else
            names[next++] = "SIGNAL_" + word;
    }
    EXPECT_EQ(names.size(), 62U);
    for (int type = -3; type < 3000; ++type)
        EXPECT_EQ(NameOf(type), names.count(type) > 0 ? names[type] : "UNKOWN[" + std::to_string(type) + "]");
    EXPECT_EQ(NameOf(INT_MIN), "UNKOWN[-2147483648]");
    EXPECT_EQ(NameOf(INT_MAX), "UNKOWN[2147483647]");
}

TEST(SignalNames, AreNotDisturbedByAnotherThread)
{
    const char* text = TCDebugUtil::GetStringOfSignalType(static_cast<ESignalType>(200));
    std::thread([] { EXPECT_EQ(NameOf(-1), "UNKOWN[-1]"); }).join();
    EXPECT_STREQ(text, "UNKOWN[200]");
}

constexpr auto kLast = static_cast<ESignalType>(9999);
std::atomic<int> g_settled{0};

template <class... Arguments> int Settled(ESignalType, Arguments...) { return ++g_settled; }

void Raise(int type, const host::Pipeline& pipeline = {}, const TSSignalData& data = {})
{
    host::SignalHub::Instance().Raise(static_cast<ESignalType>(type), pipeline, data);
}

// Types word by word. Before each, signals are raised, and what they print is waited for.
class Engineer : public std::streambuf
{
public:
    Engineer(const std::string& words, host::SignalCallback settled, std::function<void()> raise,
             const std::string& scenario = "")
        : m_television(scenario), m_words(words), m_settled(settled), m_raise(std::move(raise))
    {
        host::SignalHub::Instance().Subscribe(m_settled)->AddSignal(kLast, 0, 0, 0, 0);
        std::cin.rdbuf(this);
    }
    ~Engineer() override { host::SignalHub::Instance().Unsubscribe(m_settled); }

    // The signals, and where their menu was left.
    std::string Printed()
    {
        static const std::regex line("(?:\tSIGNAL_|\\[DebugUtil\\] Signal|TVServiceAPI::DestroySignal).*\n");
        const std::string record = m_television.TakeRecord();
        std::string printed;
        for (std::sregex_iterator found(record.begin(), record.end(), line), end; found != end; ++found)
            printed += found->str();
        return printed;
    }

protected:
    int_type underflow() override
    {
        const int before = g_settled;
        m_raise();
        Raise(kLast);
        while (g_settled == before)
            std::this_thread::yield();
        if (!(m_words >> m_word))
            return traits_type::eof();
        m_word += '\n';
        setg(m_word.data(), m_word.data(), m_word.data() + m_word.size());
        return traits_type::to_int_type(m_word[0]);
    }

private:
    Television m_television;
    std::istringstream m_words;
    std::string m_word;
    host::SignalCallback m_settled;
    std::function<void()> m_raise;
};

TEST(SignalPrinters, OfTheTVSMenuNameTheSignals)
{
    Engineer engineer("4 4 5 99", Settled<TSSignalData, void*>, [] {
        for (int type = 58; type < 68; ++type)
            Raise(type);
    });
    EXPECT_TRUE(TCDebugUtil::TVSDebugFunction());
    EXPECT_EQ(TCDebugUtil::SignalReceivedCallback(static_cast<ESignalType>(200), {}, nullptr), 0);
    std::string expected;
    for (const int type : {59, 60, 61, 62, 63, 66, 59, 60, 61, 62, 63, 66, 200})
        expected += "[DebugUtil] SignalReceivedCallback - signal:" + NameOf(type) + "\n";
    EXPECT_EQ(engineer.Printed(), expected);
}

// What arrives, and how it is printed.
struct Signals {
    host::Pipeline pipeline;
    std::uint64_t data; // the first eight bytes, the last one first
    const char *pipelineText, *started, *completed, *success;
};

const Signals kSignals[] = {
    {{PROFILE_SCAN, 65535}, 0x8887868584838281, "702, screenId: 65535, ", "-32127|-31613|-31099", "false", "true"},
    {{PROFILE_PIP, 32768}, 0xFFFFFFFFFFFFFFFF, "101, screenId: 32768, ", "-1|-1|-1", "false", "true"},
    {{static_cast<EProfile>(-2), 0}, 0x17FFF0100, "-2, screenId: 0, ", "256|32767|1", "false", "false"},
    {{PROFILE_MAIN, 1}, 0x0605040302010000, "1, screenId: 1, ", "0|513|1027", "true", "false"},
    {{PROFILE_MAIN, 0}, 1, "1, screenId: 0, ", "1|0|0", "false", "true"},
};

TEST(SignalPrinters, OfTheTPMSMenuReadTheData)
{
    TCDebugMenuTPMS menu;
    std::string expected;
    const auto raise = [&] {
        ISignalSubscriber* subscriber = *reinterpret_cast<ISignalSubscriber**>(&menu); // its one member
        for (const auto& [pipeline, bytes, pipelineText, started, completed, success] : kSignals) {
            TSSignalData data = {};
            data.bytes[8] = 0xFF; // belongs to no field
            for (int i = 0; i < 8; ++i)
                data.bytes[i] = static_cast<unsigned char>(bytes >> (8 * i));
            for (const int type : {81, 193, 194, 195, 59}) { // the last one is not printed
                subscriber->AddSignal(static_cast<ESignalType>(type), 0, 0, 0, 0);
                Raise(type, pipeline, data);
            }
            const std::string text = std::string(" -> profile:") + pipelineText;
            expected += "\tSIGNAL_SI_STARTED" + text +
                        std::regex_replace(started, std::regex(R"((.*)\|(.*)\|(.*))"),
                                           "chType:$1, srvProfile:$2, chNumber:$3\n") +
                        "\tSIGNAL_TUNE_AROUND_SERVICE_DONE" + text + "serviceId: " + std::to_string(bytes) + "\n" +
                        "\tSIGNAL_TUNE_AROUND_FINISHED" + text + "completed: " + completed + "\n" +
                        "\tSIGNAL_BARKER_CHANNEL_TUNE" + text + "is success:" + success + "\n";
        }
    };
    Engineer engineer("99 8 99", Settled<EProfile, unsigned short, TSSignalData, void*>, raise,
                      "[throw]\nIAVControl::RestartVideoDecoder=fault\n");
    for (const bool throws : {false, true, false}) {
        if (throws)
            EXPECT_THROW(menu.Enter(), std::runtime_error);
        else
            menu.Enter();
        expected += "TVServiceAPI::DestroySignalSubscriber()\n";
        Raise(SIGNAL_SI_STARTED); // nobody is told
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            ;
    }
    EXPECT_EQ(engineer.Printed(), expected);
}

// The loop is quit before its thread has come to it, as a rule.
TEST(SignalPrinters, LeaveAtOnce)
{
    Television television;
    for (int round = 0; round < 500; ++round) {
        television.Type("99");
        TCDebugMenuTPMS().Enter();
    }
    EXPECT_EQ(g_main_context_pending(nullptr), FALSE);
}

} // namespace
