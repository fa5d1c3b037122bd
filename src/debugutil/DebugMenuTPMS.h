// The TPMS test menu: tests of the TV service's playback, tuning and service navigation. A plug-in creates one and
// calls Enter; this header needs no header of the platform.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <utility>

#define DEBUGUTIL_EXPORT __attribute__((visibility("default")))

class IAVControl;
class IPipelineUtility;
class IReferenceCount;
class IServiceNavigation;
class ISignalSubscriber;
class ISourceControl;
enum EAntennaMode : std::int32_t;
enum EProfile : std::int32_t;
enum ESource : std::int32_t;
struct TVSHandle;
template <class... Arguments> class TCMenu;

class TCDebugMenuTPMS
{
public:
    DEBUGUTIL_EXPORT TCDebugMenuTPMS();

    /// Runs the menu on the console until 99 or the end of input. Meanwhile a thread runs a GLib main loop on the
    /// default context; the caller must not own that context. May be called again. An exception of the TV service
    /// reaches the caller after everything has been released.
    DEBUGUTIL_EXPORT void Enter();

private:
    friend struct TSTestAccess;

    // The tests kept their numbers when the commands of the main menu moved: commands 12 to 17 are Test13 to Test18.
    // A test with a menu has a table, a runner and a printer, which the runner calls. The type of the table names the
    // arguments of its rows.

    // The main menu.
    static const TCMenu<TCDebugMenuTPMS&> m_mainMenu;
    void m_PrintMainMenu();
    /// The number at the start of the text. Unless null, `ok` is set to whether there is one in the range of int.
    int m_StrToInt(const std::string& text, bool* ok);
    /// Prompts and reads one number; none if the word is not valid or the input ends.
    std::optional<int> m_AskNumber(const std::string& prompt);
    /// The same, with -1 for none. After the end of input it does not prompt.
    int m_SelectCmd(const std::string& prompt);
    /// Prompts for a major channel number and returns the low 16 bits of m_SelectCmd, so 65535 for none.
    unsigned short m_SelectMajor();
    /// Runs the menu of a test: RunMenu with m_SelectCmd, where -1 is none.
    void m_RunMenu(const std::function<void()>& print, const std::function<bool(int number)>& dispatch,
                   const char* prompt = "cmd> ");
    void m_GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile);

    // Lookups. If there is no service: INVALID_SERVICE_ID, and "FindService failed" is printed without a line end.
    bool m_GetServiceList(std::list<std::pair<unsigned long long, unsigned int>>& services,
                          IServiceNavigation* navigation);
    unsigned long long m_GetServiceId(EAntennaMode antenna, unsigned short major);
    unsigned long long m_GetServiceId(unsigned short major);
    int m_GetVconfInt(const char* key, int* value);

    // AV control tests.
    static const TCMenu<IReferenceCount&> m_test1Menu;
    void m_Start_Test1_ReferenceCount();
    void m_PrintMenu_Test1_ReferenceCount();
    static const TCMenu<IAVControl&, int> m_test2Menu;
    void m_Start_Test2_MuteControl();
    void m_PrintMenu_Test2_MuteControl();
    static const TCMenu<ISourceControl&, ESource> m_test3Menu;
    void m_Start_Test3_HDMIAnalysis();
    void m_PrintMenu_Test3_HDMIAnalysis();
    static const TCMenu<IServiceNavigation&> m_test6Menu;
    void m_Start_Test6_SetDTVMode();
    void m_PrintMenu_Test6_SetDTVMode();

    // Source and service selection.
    static const TCMenu<TCDebugMenuTPMS&> m_test7Menu;
    void m_Start_Test7_SetSource();
    void m_PrintMenu_Test7_SetSource();
    void m_SetServiceOnPipeline(EProfile profile);
    void m_SetSourceOnClone();
    void m_BindWindow(EProfile profile);
    static const TCMenu<TCDebugMenuTPMS&> m_test17Menu;
    void m_Start_Test17_SetPrevieSource();
    void m_PrintMenu_Test17_SetPrevieSource();
    void m_SetPreviewSource(bool withService);
    static const TCMenu<IServiceNavigation&, ISourceControl&> m_invalidServiceMenu;
    /// Returns false if a control object cannot be created.
    bool m_InvalidServiceTest();
    /// Returns true if the TV service accepted it.
    bool m_SetBootupService();

    // Tune preparation.
    static const TCMenu<IPipelineUtility&, const std::string&> m_test13Menu;
    void m_Start_Test13_PreparationLogicTest();
    void m_PrintMenu_Test13_PreparationLogicTest();
    class TCMechanismTest;
    static const TCMenu<TCMechanismTest&> m_test18Menu;
    void m_Start_Test18_SignalTunePreparationMechanism();
    void m_PrintMenu_Test18_SignalTunePreparationMechanism();

    // TV mode, crop and captions.
    static const TCMenu<TCDebugMenuTPMS&, unsigned short> m_test14Menu;
    void m_Start_Test14_SetTvModeTest();
    void m_PrintMenu_Test14_SetTvModeTest();
    void m_RunSetTvModeTest(EAntennaMode antenna, unsigned short major, bool vc);
    void m_Start_Test15_SetCropVideoTest();
    void m_Start_Test16_CheckCaptionExistTest();

    // Zoom windows.
    class TCZoomTest;
    static const TCMenu<TCZoomTest&> m_zoomMenu;
    void m_ZoomControlTest();
    void m_PrintMenu_ZoomControlTest();

    // Guide data and scans.
    class TCEpgTest;
    static const TCMenu<TCEpgTest&> m_epgMenu;
    /// Returns false if a control object cannot be created.
    bool m_EpgDataFeeding();

    // Commands without a menu of their own.
    void m_GetCurrentTPMSStatus();
    void m_SetTvModeToDigitalAir();
    void m_RestartVideoDecoder();
    void m_CheckTunerSignalState();
    void m_PrintLatestServices();

    ISignalSubscriber* m_signalSubscriber = nullptr; // owned by the TV service; valid while Enter runs, or null
};
