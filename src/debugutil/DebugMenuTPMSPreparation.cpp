// Applications that take part in a change of service or source.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

namespace
{

constexpr const char* kApplication = "DebugMenuTPMS";
constexpr const char* kApp1 = "org.ostrel.sigtunepreptest1";
constexpr const char* kApp2 = "org.ostrel.sigtunepreptest2";
constexpr int kReady = 1;

void CheckPending(IPipelineUtility& utility, EStateChange kind)
{
    bool pending = false;
    utility.CheckPendingState(kind, pending);
}

const TCMenu<IPipelineUtility&> kPreparationMenu = {
    tpms::Frame(),
    "\t[Test13 List - Preparation Logic Test]\t\n",
    {
        {1, " 1. call IPipelineUtilityl::RegisterForStateChange - STATE_CHANGE_SERVICE \n",
         [](IPipelineUtility& utility) { utility.RegisterForStateChange(STATE_CHANGE_SERVICE, kApplication, 0); }},
        {2, " 2. call IPipelineUtiltiyl::UnregisterFromStateChange  - STATE_CHANGE_SERVICE \n",
         [](IPipelineUtility& utility) { utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, kApplication); }},
        {3, " 3. call IPipelineUtiltiyl::NotifyReceiverState - STATE_CHANGE_SERVICE \n",
         [](IPipelineUtility& utility) {
             utility.NotifyReceiverState(STATE_CHANGE_SERVICE, kApplication, kReady, INVALID_SERVICE_ID);
         }},
        {4, " 4. call IPipelineUtiltiyl::CheckPendingState - STATE_CHANGE_SERVICE \n",
         [](IPipelineUtility& utility) { CheckPending(utility, STATE_CHANGE_SERVICE); }},
        {0, " ========================================================================= \n", nullptr},
        {5, " 5. call IPipelineUtilityl::RegisterForStateChange - STATE_CHANGE_SOURCE \n",
         [](IPipelineUtility& utility) { utility.RegisterForStateChange(STATE_CHANGE_SOURCE, kApplication, 0); }},
        {6, " 6. call IPipelineUtiltiyl::UnregisterFromStateChange  - STATE_CHANGE_SOURCE \n",
         [](IPipelineUtility& utility) { utility.UnregisterFromStateChange(STATE_CHANGE_SOURCE, kApplication); }},
        {7, " 7. call IPipelineUtiltiyl::NotifyReceiverState - STATE_CHANGE_SOURCE \n",
         [](IPipelineUtility& utility) {
             utility.NotifyReceiverState(STATE_CHANGE_SOURCE, kApplication, kReady, INVALID_SERVICE_ID);
         }},
        {8, " 8. call IPipelineUtiltiyl::CheckPendingState - STATE_CHANGE_SOURCE \n",
         [](IPipelineUtility& utility) { CheckPending(utility, STATE_CHANGE_SOURCE); }},
    },
};

void RegisterApp(IPipelineUtility& utility, const char* application, const char* label)
{
    tpms::ReportResult(label, utility.RegisterForStateChange(STATE_CHANGE_SERVICE, application, 0));
}

void UnregisterApp(IPipelineUtility& utility, const char* application, const char* label)
{
    tpms::ReportResult(label, utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, application));
}

void ReportPending(IPipelineUtility& utility)
{
    bool pending = false;
    const int result = utility.CheckPendingState(STATE_CHANGE_SERVICE, pending);
    console::WriteLine(std::string("pending=") + (pending ? "1" : "0"));
    tpms::ReportResult("CheckPendingState", result);
}

void WithdrawPending(IPipelineUtility& utility)
{
    bool pending = false;
    utility.CheckPendingState(STATE_CHANGE_SERVICE, pending);
    if (!pending)
        return;
    utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, kApp1);
    utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, kApp2);
}

} // namespace

void TCDebugMenuTPMS::m_Start_Test13_PreparationLogicTest()
{
    const auto utility = tpms::CreatePipelineUtility();
    if (utility)
        m_RunMenu(kPreparationMenu, tpms::kCommandPrompt, tpms::Leave, *utility);
}

void TCDebugMenuTPMS::m_PrintMenu_Test13_PreparationLogicTest() { tpms::PrintMenu(kPreparationMenu); }

const TCMenu<TCDebugMenuTPMS&, IPipelineUtility&>& TCDebugMenuTPMS::m_Menu_Test18_SignalTunePreparationMechanism()
{
    // Wider rules than those of the other menus.
    static const TSMenuFrame frame = {" " + std::string(86, '=') + "\n", " " + std::string(86, '-') + "\n"};
    static const TCMenu<TCDebugMenuTPMS&, IPipelineUtility&> table = {
        frame,
        "\t      [Test18 List - SignalTunePreparationMechanism (AIR/CABLE/SAT)]\n",
        {
            {1, " 1. call [Main Handle] RegisterForStateChange(STATE_CHANGE_SERVICE) (App1)\n",
             [](TCDebugMenuTPMS&, IPipelineUtility& utility) {
                 RegisterApp(utility, kApp1, "RegisterForStateChange (App1)");
             }},
            {2, " 2. call [Main Handle] NotifyReadyForSetService(STATE_CHANGE_SERVICE) (App1)\n",
             [](TCDebugMenuTPMS& menu, IPipelineUtility& utility) {
                 menu.m_NotifyReceiverState(utility, kApp1, "NotifyReceiverState (App1)");
             }},
            {3, " 3. call [Main Handle] UnregisterFromStateChange(STATE_CHANGE_SERVICE) (App1)\n",
             [](TCDebugMenuTPMS&, IPipelineUtility& utility) {
                 UnregisterApp(utility, kApp1, "UnregisterFromStateChange (App1)");
             }},
            {0, frame.thick, nullptr},
            {4, " 4. call [Main Handle] RegisterForStateChange(STATE_CHANGE_SERVICE) (App2)\n",
             [](TCDebugMenuTPMS&, IPipelineUtility& utility) {
                 RegisterApp(utility, kApp2, "RegisterForStateChange (App2)");
             }},
            {5, " 5. call [Main Handle] NotifyReadyForSetService(STATE_CHANGE_SERVICE) (App2)\n",
             [](TCDebugMenuTPMS& menu, IPipelineUtility& utility) {
                 menu.m_NotifyReceiverState(utility, kApp2, "NotifyReceiverState (App2)");
             }},
            {6, " 6. call [Main Handle] UnregisterFromStateChange(STATE_CHANGE_SERVICE) (App2)\n",
             [](TCDebugMenuTPMS&, IPipelineUtility& utility) {
                 UnregisterApp(utility, kApp2, "UnregisterFromStateChange (App2)");
             }},
            {0, frame.thick, nullptr},
            {7, " 7. call [Main Handle] CheckPendingState(STATE_CHANGE_SERVICE) \n",
             [](TCDebugMenuTPMS&, IPipelineUtility& utility) { ReportPending(utility); }},
        },
    };
    return table;
}

void TCDebugMenuTPMS::m_Start_Test18_SignalTunePreparationMechanism()
{
    const auto utility = tpms::CreatePipelineUtility();
    if (!utility)
        return;
    m_RunMenu(m_Menu_Test18_SignalTunePreparationMechanism(), tpms::kCommandPrompt, tpms::Ignore, *this, *utility);
    WithdrawPending(*utility);
}

void TCDebugMenuTPMS::m_PrintMenu_Test18_SignalTunePreparationMechanism()
{
    tpms::PrintMenu(m_Menu_Test18_SignalTunePreparationMechanism());
}

void TCDebugMenuTPMS::m_NotifyReceiverState(IPipelineUtility& utility, const char* application, const char* label)
{
    const int major = m_SelectCmd("Enter next channel major (int)> ");
    if (major == tpms::kNoAnswer)
        return;
    const unsigned long long serviceId = m_GetServiceId(static_cast<unsigned short>(major));
    if (serviceId == INVALID_SERVICE_ID) {
        tpms::ReportMajor(major);
        return;
    }
    console::WriteLine("major = " + std::to_string(major) + " ,serviceId = " + std::to_string(serviceId));
    tpms::ReportResult(label, utility.NotifyReceiverState(STATE_CHANGE_SERVICE, application, kReady, serviceId));
}
