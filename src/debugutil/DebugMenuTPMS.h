// The TPMS test menu: numbered tests of the TV service's playback, tuning and service navigation. A plug-in makes one
// and calls Enter; it needs none of the platform's headers for that.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <utility>

#define DEBUGUTIL_EXPORT __attribute__((visibility("default")))

class IServiceNavigation;
class ISignalSubscriber;
enum EAntennaMode : std::int32_t;
enum EProfile : std::int32_t;
struct TVSHandle;
template <class... Arguments> class TCMenu;

class TCDebugMenuTPMS
{
public:
    DEBUGUTIL_EXPORT TCDebugMenuTPMS();

    /// Runs the menu on the console until 99 or the end of input, with a GLib main loop on the default context in a
    /// thread of its own; the caller must not hold that context. May be called again. An exception of the TV service
    /// ends it, in order, and passes.
    DEBUGUTIL_EXPORT void Enter();

private:
    // A test keeps the number by which the TV service's people know it, though the commands of the main menu have
    // moved: command 12 is Test13, and so on up to command 17, which is Test18. m_PrintMenu_... prints a test's menu.

    // The shell.
    static const TCMenu<TCDebugMenuTPMS&>& m_MainMenu();
    void m_PrintMainMenu();
    void m_RunMainMenu();
    /// The number at the start of the text; `ok`, unless null, tells whether there is one in the range of int.
    int m_StrToInt(const std::string& text, bool* ok);
    /// Prompts and reads one number; -1 when nothing valid was read. What has ended is not asked again.
    int m_SelectCmd(const std::string& prompt);
    /// Prompts for a major channel number: the low 16 bits of what was read, so 65535 when nothing valid was.
    unsigned short m_SelectMajor();
    /// Prints a menu and runs its rows with those arguments, until 99, the end of input, or an unknown number with
    /// which `onUnknown` does not go on.
    template <class Menu, class... Arguments>
    void m_RunMenu(const Menu& menu, const char* prompt, bool (*onUnknown)(int number), Arguments&... arguments);
    void m_GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile);

    // Lookups. Without a service the id is INVALID_SERVICE_ID; "FindService failed" is printed without a line end.
    bool m_GetServiceList(std::list<std::pair<unsigned long long, unsigned int>>& services,
                          IServiceNavigation* navigation);
    unsigned long long m_GetServiceId(EAntennaMode antenna, unsigned short major);
    unsigned long long m_GetServiceId(unsigned short major);
    int m_GetVconfInt(const char* key, int* value);

    // AV control tests.
    void m_Start_Test1_ReferenceCount();
    void m_PrintMenu_Test1_ReferenceCount();
    void m_Start_Test2_MuteControl();
    void m_PrintMenu_Test2_MuteControl();
    void m_Start_Test3_HDMIAnalysis();
    void m_PrintMenu_Test3_HDMIAnalysis();
    void m_Start_Test6_SetDTVMode();
    void m_PrintMenu_Test6_SetDTVMode();

    // Source and service selection.
    static const TCMenu<TCDebugMenuTPMS&>& m_Menu_Test7_SetSource();
    void m_Start_Test7_SetSource();
    void m_PrintMenu_Test7_SetSource();
    void m_SetServiceOnPipeline(EProfile profile);
    void m_SetSourceOnClone();
    void m_BindWindow(EProfile profile);
    static const TCMenu<TCDebugMenuTPMS&>& m_Menu_Test17_SetPrevieSource();
    void m_Start_Test17_SetPrevieSource();
    void m_PrintMenu_Test17_SetPrevieSource();
    void m_SetPreviewSource(bool withService);
    /// False when a control object cannot be made.
    bool m_InvalidServiceTest();
    /// True when the service accepted it.
    bool m_SetBootupService();

    // Tune preparation.
    void m_Start_Test13_PreparationLogicTest();
    void m_PrintMenu_Test13_PreparationLogicTest();
    class TCMechanismTest;
    void m_Start_Test18_SignalTunePreparationMechanism();
    void m_PrintMenu_Test18_SignalTunePreparationMechanism();

    // TV mode, crop and captions.
    static const TCMenu<TCDebugMenuTPMS&, unsigned short>& m_Menu_Test14_SetTvModeTest();
    void m_Start_Test14_SetTvModeTest();
    void m_PrintMenu_Test14_SetTvModeTest();
    void m_RunSetTvModeTest(EAntennaMode antenna, unsigned short major, bool vc);
    void m_Start_Test15_SetCropVideoTest();
    void m_Start_Test16_CheckCaptionExistTest();

    // Zoom windows.
    class TCZoomTest;
    void m_ZoomControlTest();
    void m_PrintMenu_ZoomControlTest();

    // Guide data and scans.
    class TCEpgTest;
    /// False when a control object cannot be made.
    bool m_EpgDataFeeding();

    // Commands without a menu of their own.
    void m_GetCurrentTPMSStatus();
    void m_SetTvModeToDigitalAir();
    void m_RestartVideoDecoder();
    void m_CheckTunerSignalState();
    void m_PrintLatestServices();

    ISignalSubscriber* m_signalSubscriber = nullptr; // the TV service's; null without one, valid while Enter runs
};
