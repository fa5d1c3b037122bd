// What is printed of the signals that arrive while a menu has the console.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugUtil.h"
#include "host/simulator/Signals.h"
#include "support/Television.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <functional>
#include <glib.h>
#include <gtest/gtest.h>
#include <iostream>
#include <regex>
#include <thread>
#include <unistd.h>

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
        if (std::isdigit(static_cast<unsigned char>(word[0])) != 0)
            next = std::stoi(word);
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

template <class... Arguments> int Settled(ESignalType, Arguments...)
{
    ++g_settled;
    return 0;
}

void Raise(int type, const TVSHandle& pipeline = {}, const TSSignalData& data = {})
{
    host::SignalHub::Instance().Raise(static_cast<ESignalType>(type), pipeline, data);
}

// Types word by word. At "raise" signals are raised, and what they print is waited for before the next word.
class Engineer : public std::streambuf
{
public:
    Engineer(const std::string& words, host::SignalCallback settled, std::function<void()> raise,
             const std::string& scenario = "")
        : m_television(scenario), m_words(words), m_settled(settled), m_raise(std::move(raise))
    {
        host::SignalHub::Instance().Subscribe(m_settled)->AddSignal(kLast, 0, 0, 0, 0);
        std::cin.rdbuf(this);
        m_television.TakeRecord();
    }
    ~Engineer() override { host::SignalHub::Instance().Unsubscribe(m_settled); }

    // The signals of the record, and where their menu was left.
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
        while (m_words >> m_word) {
            if (m_word != "raise") {
                m_word += ' ';
                setg(m_word.data(), m_word.data(), m_word.data() + m_word.size());
                return traits_type::to_int_type(m_word[0]);
            }
            const int before = g_settled;
            m_raise();
            Raise(kLast);
            while (g_settled == before)
                std::this_thread::yield();
        }
        return traits_type::eof();
    }

private:
    Television m_television;
    std::istringstream m_words;
    std::string m_word;
    host::SignalCallback m_settled;
    std::function<void()> m_raise;
};

class SignalPrinters : public testing::Test
{
protected:
    void SetUp() override { alarm(60); } // what waits for ever ends the program
    void TearDown() override { alarm(0); }
};

TEST_F(SignalPrinters, OfTheTVSMenuNameTheSignals)
{
    Engineer engineer("raise 4 raise 4 5 raise 99", Settled<TSSignalData, void*>, [] {
        for (int type = 58; type < 68; ++type)
            Raise(type);
    });
    EXPECT_TRUE(TCDebugUtil::TVSDebugFunction());
    EXPECT_EQ(TCDebugUtil::SignalReceivedCallback(static_cast<ESignalType>(200), {}, nullptr), 0);
    std::string expected;
    for (const char* name : {"SIGNAL_TUNE_START", "SIGNAL_TUNE_SUCCESS", "SIGNAL_TUNER_LOCK_FAIL",
                             "SIGNAL_SERVICE_LOCKED", "SIGNAL_TUNE_STOP", "SIGNAL_RESOLUTION_CHANGED", "UNKOWN[200]"})
        expected += std::string("[DebugUtil] SignalReceivedCallback - signal:") + name + "\n";
    EXPECT_EQ(engineer.Printed(), expected);
}

// What arrives, and how it is printed.
struct Signals {
    TVSHandle pipeline;
    std::array<unsigned char, 8> bytes;
    const char *started, *serviceId, *completed, *success;
};

const Signals kSignals[] = {
    {{PROFILE_SCAN, 65535},
     {0x81, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88},
     "chType:-32127, srvProfile:-31613, chNumber:-31099",
     "9837979819026121345",
     "false",
     "true"},
    {{static_cast<EProfile>(-1), 0}, // one byte of the first is 0, its other one not
     {0x00, 0x01, 0xFF, 0x7F, 0x01},
     "chType:256, srvProfile:32767, chNumber:1",
     "6442385664",
     "false",
     "false"},
    {{PROFILE_MAIN, 1},
     {0, 0, 1, 2, 3, 4, 5, 6},
     "chType:0, srvProfile:513, chNumber:1027",
     "433757350076153856",
     "true",
     "false"},
    {{PROFILE_PIP, 32768},
     {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
     "chType:-1, srvProfile:-1, chNumber:-1",
     "18446744073709551615",
     "false",
     "true"},
    {{PROFILE_MAIN, 0}, {1}, "chType:1, srvProfile:0, chNumber:0", "1", "false", "true"},
};

TEST_F(SignalPrinters, OfTheTPMSMenuReadTheData)
{
    TCDebugMenuTPMS menu;
    std::string expected;
    const auto raise = [&] {
        ISignalSubscriber* subscriber = *reinterpret_cast<ISignalSubscriber**>(&menu); // its one member
        for (const int type : {81, 193, 194, 195, 59})                                 // the last one is not printed
            subscriber->AddSignal(static_cast<ESignalType>(type), 0, 0, 0, 0);
        for (const Signals& signals : kSignals) {
            TSSignalData data;
            std::copy(signals.bytes.begin(), signals.bytes.end(), data.bytes);
            for (const int type : {81, 193, 194, 195, 59})
                Raise(type, signals.pipeline, data);
            const std::string pipeline = " -> profile:" + std::to_string(signals.pipeline.profile) +
                                         ", screenId: " + std::to_string(signals.pipeline.screenId) + ", ";
            expected += "\tSIGNAL_SI_STARTED" + pipeline + signals.started + "\n" +
                        "\tSIGNAL_TUNE_AROUND_SERVICE_DONE" + pipeline + "serviceId: " + signals.serviceId + "\n" +
                        "\tSIGNAL_TUNE_AROUND_FINISHED" + pipeline + "completed: " + signals.completed + "\n" +
                        "\tSIGNAL_BARKER_CHANNEL_TUNE" + pipeline + "is success:" + signals.success + "\n";
        }
    };
    const auto hasEnded = [&] {
        expected += "TVServiceAPI::DestroySignalSubscriber()\n";
        Raise(SIGNAL_SI_STARTED); // nobody is told
        while (g_main_context_iteration(nullptr, FALSE) != FALSE)
            ;
    };
    Engineer engineer("raise 99 raise 8 99", Settled<EProfile, unsigned short, TSSignalData, void*>, raise,
                      "[throw]\nIAVControl::RestartVideoDecoder=fault\n");
    menu.Enter();
    hasEnded();
    EXPECT_THROW(menu.Enter(), std::runtime_error);
    hasEnded();
    menu.Enter();
    hasEnded();
    EXPECT_EQ(engineer.Printed(), expected);
}

// The loop is quit before its thread has come to it, as a rule.
TEST_F(SignalPrinters, LeaveAtOnce)
{
    Television television;
    for (int round = 0; round < 500; ++round) {
        television.Type("99");
        TCDebugMenuTPMS().Enter();
    }
    EXPECT_EQ(g_main_context_pending(nullptr), FALSE);
}

} // namespace
