// The TPMS test menu: numbered tests of the TV service's playback, tuning and service navigation.
#pragma once

#include "debugutil/Menu.h"
#include "tvs-api/TVServiceAPI.h"

#include <functional>
#include <initializer_list>
#include <string>

#define DEBUGUTIL_EXPORT __attribute__((visibility("default")))

class TCDebugMenuTPMS
{
public:
    DEBUGUTIL_EXPORT TCDebugMenuTPMS();

    /// Runs the menu on the console until 99 or the end of input, with a GLib main loop on the default context in a
    /// thread of its own; the caller must not hold that context. May be called again. An exception of the TV service
    /// ends it, in order, and passes.
    DEBUGUTIL_EXPORT void Enter();

private:
    struct TSEpgControls;
    using TRows = TMenuRows<TCDebugMenuTPMS&>;
    using TPreparationRows = TMenuRows<TCDebugMenuTPMS&, IPipelineUtility&>;
    using TTvModeRows = TMenuRows<TCDebugMenuTPMS&, unsigned short>;
    using TZoomRows = TMenuRows<TCDebugMenuTPMS&, IZoomControl&>;
    using TEpgRows = TMenuRows<TCDebugMenuTPMS&, const TSEpgControls&>;

    // The shell.
    static const TRows& m_MainMenu();
    void m_PrintMainMenu();
    void m_RunMainMenu();
    /// The number at the start of the text; `ok`, unless null, tells whether there is one in the range of int.
    int m_StrToInt(const std::string& text, bool* ok);
    /// Prompts and reads one number; -1 when nothing valid was read. What has ended is not asked again.
    int m_SelectCmd(const std::string& prompt);
    /// Shows a menu and runs its rows with those arguments, until 99, the end of input, or an unknown number with which
    /// `onUnknown` does not go on.
    template <class Rows, class... Arguments>
    void m_RunMenu(const std::function<void()>& print, const char* prompt, const Rows& rows,
                   bool (*onUnknown)(int number), Arguments&&... arguments);
    void m_GetTVSHandleByUserInput(TVSHandle* handle, bool askProfile);

    // Lookups. Without a service the id is INVALID_SERVICE_ID; "FindService failed" is printed without a line end.
    bool m_GetServiceList(TServiceList& services, IServiceNavigation* navigation);
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
    static const TRows& m_Menu_Test7_SetSource();
    void m_Start_Test7_SetSource();
    void m_PrintMenu_Test7_SetSource();
    void m_SetServiceOnPipeline(EProfile profile);
    void m_SetSourceOnClone();
    void m_BindWindow(EProfile profile);
    static const TRows& m_Menu_Test17_SetPrevieSource();
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
    static const TPreparationRows& m_Menu_Test18_SignalTunePreparationMechanism();
    void m_Start_Test18_SignalTunePreparationMechanism();
    void m_PrintMenu_Test18_SignalTunePreparationMechanism();
    void m_NotifyReceiverState(IPipelineUtility& utility, const char* application, const char* label);

    // TV mode, crop and captions.
    static const TTvModeRows& m_Menu_Test14_SetTvModeTest();
    void m_Start_Test14_SetTvModeTest();
    void m_PrintMenu_Test14_SetTvModeTest();
    void m_RunSetTvModeTest(EAntennaMode antenna, unsigned short major, bool vc);
    void m_Start_Test15_SetCropVideoTest();
    void m_Start_Test16_CheckCaptionExistTest();

    // Zoom windows.
    static const TZoomRows& m_Menu_ZoomControlTest();
    void m_ZoomControlTest();
    void m_PrintMenu_ZoomControlTest();
    TSRectInfo m_ReadRect(const std::string& name);

    // Guide data and scans.
    static const TEpgRows& m_Menu_EpgDataFeeding();
    /// False when a control object cannot be made.
    bool m_EpgDataFeeding();
    void m_AddSignals(std::initializer_list<ESignalType> signals);
    void m_RemoveSignals(std::initializer_list<ESignalType> signals);

    // Commands without a menu of their own.
    void m_GetCurrentTPMSStatus();
    void m_SetTvModeToDigitalAir();
    void m_RestartVideoDecoder();
    void m_CheckTunerSignalState();
    void m_PrintLatestServices();

    ISignalSubscriber* m_signalSubscriber = nullptr; // the TV service's; null without one, valid while Enter runs
};
