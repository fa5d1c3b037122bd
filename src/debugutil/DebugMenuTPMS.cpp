// The main menu of the TPMS tests, its event loop, and the printer of signals.
#include "debugutil/DebugMenuTPMS.h"

#include "debugutil/DebugMenuTPMSCommon.h"
#include "debugutil/HandlePrompt.h"

#include <cstdint>
#include <exception>
#include <glib.h>
#include <memory>
#include <sstream>
#include <thread>

namespace
{

// Runs a GLib main loop on the default context in a new thread until the end of the scope.
class TCEventLoop
{
public:
    TCEventLoop()
        : m_loop(g_main_loop_new(nullptr, FALSE), g_main_loop_unref),
          m_thread([loop = m_loop.get()] { g_main_loop_run(loop); })
    {
    }

    ~TCEventLoop()
    {
        // g_main_loop_quit has no effect before the thread has entered the loop, so a source quits it from inside.
        GSource* source = g_idle_source_new();
        g_source_set_priority(source, G_PRIORITY_DEFAULT);
        g_source_set_callback(source, m_Quit, m_loop.get(), nullptr);
        g_source_attach(source, nullptr);
        g_main_loop_quit(m_loop.get()); // for a loop that waits because another thread owns the context
        m_thread.join();
        g_source_destroy(source);
        g_source_unref(source);
    }

    TCEventLoop(const TCEventLoop&) = delete;
    TCEventLoop& operator=(const TCEventLoop&) = delete;

private:
    static gboolean m_Quit(gpointer loop)
    {
        g_main_loop_quit(static_cast<GMainLoop*>(loop));
        return G_SOURCE_REMOVE;
    }

    std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> m_loop;
    std::thread m_thread;
};

// The little-endian number at `offset` of a signal's data.
template <class Number> Number ReadNumber(const TSSignalData& data, std::size_t offset)
{
    unsigned long long bits = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bits |= static_cast<unsigned long long>(data.bytes[offset + i]) << (8 * i);
    return static_cast<Number>(bits);
}

int TVSSignalCallback(ESignalType type, EProfile profile, unsigned short screenId, TSSignalData data,
                      void* /*userData*/)
{
    const auto line = [&](const char* name, const std::string& fields) {
        console::WriteLine(std::string("\t") + name + " -> profile:" + std::to_string(profile) +
                           ", screenId: " + std::to_string(screenId) + fields);
    };
    const auto number = [&](std::size_t offset) { return std::to_string(ReadNumber<std::int16_t>(data, offset)); };
    switch (type) {
    case SIGNAL_SI_STARTED:
        line("SIGNAL_SI_STARTED", ", chType:" + number(0) + ", srvProfile:" + number(2) + ", chNumber:" + number(4));
        break;
    case SIGNAL_TUNE_AROUND_SERVICE_DONE:
        line("SIGNAL_TUNE_AROUND_SERVICE_DONE", ", serviceId: " + std::to_string(ReadNumber<std::uint64_t>(data, 0)));
        break;
    case SIGNAL_TUNE_AROUND_FINISHED: // here 0 is success; in the next signal it is failure
        line("SIGNAL_TUNE_AROUND_FINISHED",
             std::string(", completed: ") + (ReadNumber<std::uint16_t>(data, 0) == 0 ? "true" : "false"));
        break;
    case SIGNAL_BARKER_CHANNEL_TUNE:
        line("SIGNAL_BARKER_CHANNEL_TUNE",
             std::string(", is success:") + (ReadNumber<std::uint8_t>(data, 0) != 0 ? "true" : "false"));
        break;
    default:
        break;
    }
    return 0;
}

// Subscribes the printer until the end of the scope.
class TCSubscription
{
public:
    /// Writes the subscriber, or null. The result of the factory is ignored.
    explicit TCSubscription(ISignalSubscriber** subscriber)
    {
        *subscriber = nullptr;
        TVServiceAPI::CreateSignalSubscriber(TVSSignalCallback, subscriber);
    }

    ~TCSubscription() noexcept(false)
    {
        ReleaseAtEndOfScope(m_exceptions, [] { TVServiceAPI::DestroySignalSubscriber(TVSSignalCallback); });
    }

    TCSubscription(const TCSubscription&) = delete;
    TCSubscription& operator=(const TCSubscription&) = delete;

private:
    int m_exceptions = std::uncaught_exceptions();
};

} // namespace

TCDebugMenuTPMS::TCDebugMenuTPMS() = default;

void TCDebugMenuTPMS::Enter()
{
    // Destroyed in reverse order: the subscription ends first, then the loop quits and its thread is joined.
    const TCEventLoop loop;
    const TCSubscription subscription(&m_signalSubscriber);
    RunMenu([this] { m_PrintMainMenu(); }, [this] { return m_AskNumber("cmd> "); },
            [this](int command) { return m_mainMenu.Dispatch(command, PrintUnrecognized, *this); });
}

const TCMenu<TCDebugMenuTPMS&> TCDebugMenuTPMS::m_mainMenu = {
    tpms::Frame(),
    "\t[Process Debug List]\t\n",
    {
        {1, " 1. Reference Count Test\n", &TCDebugMenuTPMS::m_Start_Test1_ReferenceCount},
        {2, " 2. AV Mute Test\n", &TCDebugMenuTPMS::m_Start_Test2_MuteControl},
        {3, " 3. HDMI Anaysis (Capture) test\n", &TCDebugMenuTPMS::m_Start_Test3_HDMIAnalysis},
        {4, " 4. GetCurrentTPMSStatus test\n", &TCDebugMenuTPMS::m_GetCurrentTPMSStatus},
        {5, " 5. SetTvMode to DTV Air\n", &TCDebugMenuTPMS::m_SetTvModeToDigitalAir},
        {6, " 6. SetDTVMode test\n", &TCDebugMenuTPMS::m_Start_Test6_SetDTVMode},
        {7, " 7. SetSource Test\n", &TCDebugMenuTPMS::m_Start_Test7_SetSource},
        {8, " 8. RestartVideoDecorder\n", &TCDebugMenuTPMS::m_RestartVideoDecoder},
        {9, " 9. Set AVMode test\n", [](TCDebugMenuTPMS&) {}},
        {10, " 10. Check Tuner Signal Sate\n", &TCDebugMenuTPMS::m_CheckTunerSignalState},
        {11, " 11. Get Lastest Channel info\n", &TCDebugMenuTPMS::m_PrintLatestServices},
        {12, " 12. Preparation Logic Test\n", &TCDebugMenuTPMS::m_Start_Test13_PreparationLogicTest},
        {13, " 13. Preparation SetTvMode with service Id Test\n", &TCDebugMenuTPMS::m_Start_Test14_SetTvModeTest},
        {14, " 14. Set Crop Video test\n", &TCDebugMenuTPMS::m_Start_Test15_SetCropVideoTest},
        {15, " 15. Check Caption Exist test\n", &TCDebugMenuTPMS::m_Start_Test16_CheckCaptionExistTest},
        {16, " 16. SetPreviewSource\n", &TCDebugMenuTPMS::m_Start_Test17_SetPrevieSource},
        {17, " 17. SIGNAL_TUNE_PREPARATION mechanism\n",
         &TCDebugMenuTPMS::m_Start_Test18_SignalTunePreparationMechanism},
        {18, " 18. Epg Data Feeding\n", &TCDebugMenuTPMS::m_EpgDataFeeding},
        {19, " 19. IZoomControl test\n", &TCDebugMenuTPMS::m_ZoomControlTest},
        {20, " 20. InvalidService test\n", &TCDebugMenuTPMS::m_InvalidServiceTest},
        {21, " 21. Set boot up service\n", &TCDebugMenuTPMS::m_SetBootupService},
    },
};

void TCDebugMenuTPMS::m_PrintMainMenu() { console::WriteLine(m_mainMenu.Text()); }

int TCDebugMenuTPMS::m_StrToInt(const std::string& text, bool* ok)
{
    std::stringstream stream(text);
    int number = 0;
    stream >> number;
    if (ok != nullptr)
        *ok = !stream.fail();
    return number;
}

std::optional<int> TCDebugMenuTPMS::m_AskNumber(const std::string& prompt)
{
    std::string word;
    if (!console::Ask(prompt, word))
        return std::nullopt;
    bool isNumber{};
    const int number = m_StrToInt(word, &isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

int TCDebugMenuTPMS::m_SelectCmd(const std::string& prompt)
{
    return console::InputEnded() ? tpms::kNoAnswer : m_AskNumber(prompt).value_or(tpms::kNoAnswer);
}

unsigned short TCDebugMenuTPMS::m_SelectMajor() { return static_cast<unsigned short>(m_SelectCmd("major> ")); }

void TCDebugMenuTPMS::m_RunMenu(const std::function<void()>& print, const std::function<bool(int number)>& dispatch,
                                const char* prompt)
{
    const auto read = [&]() -> std::optional<int> {
        const int number = m_SelectCmd(prompt);
        return number == tpms::kNoAnswer ? std::nullopt : std::optional(number);
    };
    RunMenu(print, read, dispatch);
}

void TCDebugMenuTPMS::m_GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile)
{
    PromptForTVSHandle(handle, askProfile);
}
