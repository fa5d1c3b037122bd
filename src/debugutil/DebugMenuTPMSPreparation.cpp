// Tests of the applications that take part in a change of service or source.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

namespace
{

constexpr int kReady = 1;
constexpr const char* kApp1 = "org.ostrel.sigtunepreptest1";
constexpr const char* kApp2 = "org.ostrel.sigtunepreptest2";

// This menu is wider than the others.
const TSMenuFrame kWideFrame = {" " + std::string(86, '=') + "\n", " " + std::string(86, '-') + "\n"};

void CheckPending(IPipelineUtility& utility, EStateChange kind)
{
    bool pending = false;
    utility.CheckPendingState(kind, pending);
}

} // namespace

const TCMenu<IPipelineUtility&, const std::string&> TCDebugMenuTPMS::m_test13Menu = {
    tpms::Frame(),
    "\t[Test13 List - Preparation Logic Test]\t\n",
    {
        {1, " 1. call IPipelineUtilityl::RegisterForStateChange - STATE_CHANGE_SERVICE \n",
         [](auto& utility, auto& app) { utility.RegisterForStateChange(STATE_CHANGE_SERVICE, app, 0); }},
        {2, " 2. call IPipelineUtiltiyl::UnregisterFromStateChange  - STATE_CHANGE_SERVICE \n",
         [](auto& utility, auto& app) { utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, app); }},
        {3, " 3. call IPipelineUtiltiyl::NotifyReceiverState - STATE_CHANGE_SERVICE \n",
         [](auto& utility, auto& app) {
             utility.NotifyReceiverState(STATE_CHANGE_SERVICE, app, kReady, INVALID_SERVICE_ID);
         }},
        {4, " 4. call IPipelineUtiltiyl::CheckPendingState - STATE_CHANGE_SERVICE \n",
         [](auto& utility, auto&) { CheckPending(utility, STATE_CHANGE_SERVICE); }},
        {" ========================================================================= \n"},
        {5, " 5. call IPipelineUtilityl::RegisterForStateChange - STATE_CHANGE_SOURCE \n",
         [](auto& utility, auto& app) { utility.RegisterForStateChange(STATE_CHANGE_SOURCE, app, 0); }},
        {6, " 6. call IPipelineUtiltiyl::UnregisterFromStateChange  - STATE_CHANGE_SOURCE \n",
         [](auto& utility, auto& app) { utility.UnregisterFromStateChange(STATE_CHANGE_SOURCE, app); }},
        {7, " 7. call IPipelineUtiltiyl::NotifyReceiverState - STATE_CHANGE_SOURCE \n",
         [](auto& utility, auto& app) {
             utility.NotifyReceiverState(STATE_CHANGE_SOURCE, app, kReady, INVALID_SERVICE_ID);
         }},
        {8, " 8. call IPipelineUtiltiyl::CheckPendingState - STATE_CHANGE_SOURCE \n",
         [](auto& utility, auto&) { CheckPending(utility, STATE_CHANGE_SOURCE); }},
    },
};

void TCDebugMenuTPMS::m_Start_Test13_PreparationLogicTest()
{
    const auto utility = tpms::CreatePipelineUtility();
    const std::string application = "DebugMenuTPMS";
    if (utility)
        m_RunMenu([this] { m_PrintMenu_Test13_PreparationLogicTest(); },
                  [&](int command) { return m_test13Menu.Dispatch(command, tpms::Leave, *utility, application); });
}

void TCDebugMenuTPMS::m_PrintMenu_Test13_PreparationLogicTest() { tpms::PrintMenu(m_test13Menu); }

// The commands of the menu, for two simulated applications that take part in changes of service.
class TCDebugMenuTPMS::TCMechanismTest
{
public:
    TCMechanismTest(TCDebugMenuTPMS& menu, IPipelineUtility& utility) : m_menu(menu), m_utility(utility) {}

    void Register(const std::string& application, const char* label);
    void Notify(const std::string& application, const char* label);
    void Unregister(const std::string& application, const char* label);
    void ReportPending();
    /// Unregisters both applications if a change is pending.
    void WithdrawPending();

private:
    TCDebugMenuTPMS& m_menu;
    IPipelineUtility& m_utility;
};

const TCMenu<TCDebugMenuTPMS::TCMechanismTest&> TCDebugMenuTPMS::m_test18Menu = {
    kWideFrame,
    "\t      [Test18 List - SignalTunePreparationMechanism (AIR/CABLE/SAT)]\n",
    {
        {1, " 1. call [Main Handle] RegisterForStateChange(STATE_CHANGE_SERVICE) (App1)\n",
         [](TCMechanismTest& test) { test.Register(kApp1, "RegisterForStateChange (App1)"); }},
        {2, " 2. call [Main Handle] NotifyReadyForSetService(STATE_CHANGE_SERVICE) (App1)\n",
         [](TCMechanismTest& test) { test.Notify(kApp1, "NotifyReceiverState (App1)"); }},
        {3, " 3. call [Main Handle] UnregisterFromStateChange(STATE_CHANGE_SERVICE) (App1)\n",
         [](TCMechanismTest& test) { test.Unregister(kApp1, "UnregisterFromStateChange (App1)"); }},
        {kWideFrame.thick.c_str()},
        {4, " 4. call [Main Handle] RegisterForStateChange(STATE_CHANGE_SERVICE) (App2)\n",
         [](TCMechanismTest& test) { test.Register(kApp2, "RegisterForStateChange (App2)"); }},
        {5, " 5. call [Main Handle] NotifyReadyForSetService(STATE_CHANGE_SERVICE) (App2)\n",
         [](TCMechanismTest& test) { test.Notify(kApp2, "NotifyReceiverState (App2)"); }},
        {6, " 6. call [Main Handle] UnregisterFromStateChange(STATE_CHANGE_SERVICE) (App2)\n",
         [](TCMechanismTest& test) { test.Unregister(kApp2, "UnregisterFromStateChange (App2)"); }},
        {kWideFrame.thick.c_str()},
        {7, " 7. call [Main Handle] CheckPendingState(STATE_CHANGE_SERVICE) \n", &TCMechanismTest::ReportPending},
    },
};

void TCDebugMenuTPMS::TCMechanismTest::Register(const std::string& application, const char* label)
{
    tpms::ReportResult(label, m_utility.RegisterForStateChange(STATE_CHANGE_SERVICE, application, 0));
}

void TCDebugMenuTPMS::TCMechanismTest::Notify(const std::string& application, const char* label)
{
    const int major = m_menu.m_SelectCmd("Enter next channel major (int)> ");
    if (major == tpms::kNoAnswer)
        return;
    const unsigned long long serviceId = m_menu.m_GetServiceId(static_cast<unsigned short>(major));
    if (serviceId == INVALID_SERVICE_ID) {
        tpms::ReportMajor(major);
        return;
    }
    console::WriteLine("major = " + std::to_string(major) + " ,serviceId = " + std::to_string(serviceId));
    tpms::ReportResult(label, m_utility.NotifyReceiverState(STATE_CHANGE_SERVICE, application, kReady, serviceId));
}

void TCDebugMenuTPMS::TCMechanismTest::Unregister(const std::string& application, const char* label)
{
    tpms::ReportResult(label, m_utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, application));
}

void TCDebugMenuTPMS::TCMechanismTest::ReportPending()
{
    bool pending = false;
    const int result = m_utility.CheckPendingState(STATE_CHANGE_SERVICE, pending);
    console::WriteLine(std::string("pending=") + (pending ? "1" : "0"));
    tpms::ReportResult("CheckPendingState", result);
}

void TCDebugMenuTPMS::TCMechanismTest::WithdrawPending()
{
    bool pending = false;
    m_utility.CheckPendingState(STATE_CHANGE_SERVICE, pending);
    if (!pending)
        return;
    m_utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, kApp1);
    m_utility.UnregisterFromStateChange(STATE_CHANGE_SERVICE, kApp2);
}

void TCDebugMenuTPMS::m_Start_Test18_SignalTunePreparationMechanism()
{
    const auto utility = tpms::CreatePipelineUtility();
    if (!utility)
        return;
    TCMechanismTest test(*this, *utility);
    m_RunMenu([this] { m_PrintMenu_Test18_SignalTunePreparationMechanism(); },
              [&](int command) { return m_test18Menu.Dispatch(command, tpms::Ignore, test); });
    test.WithdrawPending();
}

void TCDebugMenuTPMS::m_PrintMenu_Test18_SignalTunePreparationMechanism() { tpms::PrintMenu(m_test18Menu); }
