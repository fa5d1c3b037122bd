// Guide data, tune-around and barker channel scan.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"
#include "debugutil/DebugMenuTPMSLookup.h"

#include <chrono>
#include <cstdint>
#include <thread>

struct TCDebugMenuTPMS::TSEpgControls {
    IScanControl& scan;
    IServiceGuide& guide;
    IServiceNavigation& navigation;
};

namespace
{

constexpr std::chrono::milliseconds kLastSignals(1);

TSTvMode CurrentMode() { return {ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN}; }

void ReportCall(const char* operation, int result)
{
    console::WriteLine(std::string("\tcalled ") + operation + ", ret: " + std::to_string(result));
}

// Whether the service has a programme with a title; its length in 16-bit units then.
bool ReadTitle(IServiceGuide& guide, unsigned long long serviceId, unsigned int& length)
{
    TCProgramData program;
    if (guide.GetProgram(serviceId, program) <= 0)
        return false;
    unsigned short title[256] = {};
    length = 255;
    return program.Title(title, &length);
}

void ListPrograms(IServiceGuide& guide, IServiceNavigation& navigation)
{
    TCCriteriaHelper criteria;
    TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_MODE_TV, criteria, NAVIGATION_SORT_DEFAULT);
    for (const int field : {tpms::kServiceId, tpms::kFrequency, tpms::kMajor, tpms::kMinor})
        criteria.Fetch(field);
    tpms::TSServiceRecords records;
    navigation.FindServices(criteria, records.list, CurrentMode(), 0, 0);
    std::uint16_t withTitle = 0; // 16 bits on the set, too: it wraps
    for (const TCServiceData* record : records.list) {
        unsigned int length = 0;
        if (!ReadTitle(guide, tpms::ReadServiceIdTag(*record), length))
            continue;
        ++withTitle;
        const int frequency = tpms::ReadNumberTag(*record, tpms::kFrequency);
        const int major = tpms::ReadNumberTag(*record, tpms::kMajor);
        const int minor = tpms::ReadNumberTag(*record, tpms::kMinor);
        console::WriteLine("\tfreq:" + std::to_string(frequency) + " -> " + std::to_string(major) + "-" +
                           std::to_string(minor) + ": title size: " + std::to_string(length));
    }
    console::WriteLine("\tno data in " + std::to_string(records.list.size() - withTitle) + " programs");
}

} // namespace

const TCDebugMenuTPMS::TEpgRows& TCDebugMenuTPMS::m_Menu_EpgDataFeeding()
{
    static const TEpgRows rows = {
        {1, " 1. Check if programs available\n",
         [](TCDebugMenuTPMS&, const TSEpgControls& controls) { ListPrograms(controls.guide, controls.navigation); }},
        {2, " 2. Is Tune Around Needed\n",
         [](TCDebugMenuTPMS& menu, const TSEpgControls& controls) {
             TServiceList services;
             if (menu.m_GetServiceList(services, &controls.navigation))
                 ReportCall("IsTuneAroundNeeded", controls.scan.IsTuneAroundNeeded(services));
         }},
        {3, " 3. Start Tune Around\n",
         [](TCDebugMenuTPMS& menu, const TSEpgControls& controls) {
             menu.m_AddSignals({SIGNAL_SI_STARTED, SIGNAL_TUNE_AROUND_SERVICE_DONE, SIGNAL_TUNE_AROUND_FINISHED});
             TServiceList services;
             if (menu.m_GetServiceList(services, &controls.navigation))
                 ReportCall("StartTuneAround", controls.scan.StartTuneAround(services, "DebugMenu"));
         }},
        {4, " 4. Stop Tune Around\n",
         [](TCDebugMenuTPMS& menu, const TSEpgControls& controls) {
             ReportCall("StopManualScan", controls.scan.StopManualScan());
             menu.m_RemoveSignals({SIGNAL_SI_STARTED, SIGNAL_TUNE_AROUND_SERVICE_DONE, SIGNAL_TUNE_AROUND_FINISHED});
         }},
        {5, " 5. Is Barker Channel scan available\n",
         [](TCDebugMenuTPMS&, const TSEpgControls& controls) {
             ReportCall("IsBarkerChannelScanAvailable", controls.scan.IsBarkerChannelScanAvailable(CurrentMode()));
         }},
        {6, " 6. Start Barker Channel scan\n",
         [](TCDebugMenuTPMS& menu, const TSEpgControls& controls) {
             menu.m_AddSignals({SIGNAL_SI_STARTED, SIGNAL_BARKER_CHANNEL_TUNE});
             ReportCall("StartBarkerChannelScan", controls.scan.StartBarkerChannelScan("", CurrentMode()));
         }},
        {7, " 7. Stop Barker Channel scan\n",
         [](TCDebugMenuTPMS& menu, const TSEpgControls& controls) {
             ReportCall("StopBarkerChannelScan", controls.scan.StopBarkerChannelScan());
             std::this_thread::sleep_for(kLastSignals); // a last chance for what the scan reports as it stops
             menu.m_RemoveSignals({SIGNAL_SI_STARTED, SIGNAL_BARKER_CHANNEL_TUNE});
         }},
    };
    return rows;
}

bool TCDebugMenuTPMS::m_EpgDataFeeding()
{
    const auto scan = CreateControl("CreateScanControl failed\n", TVServiceAPI::CreateScanControl);
    if (!scan)
        return false;
    const auto guide = CreateControl("CreateServiceGuide failed\n", TVServiceAPI::CreateServiceGuide);
    if (!guide)
        return false;
    const auto navigation = tpms::CreateServiceNavigation();
    if (!navigation)
        return false;
    m_RunMenu([] { tpms::PrintMenu("\t[Test18 List - Epg Data Feeding]\t\n", m_Menu_EpgDataFeeding()); },
              tpms::kCommandPrompt, m_Menu_EpgDataFeeding(), tpms::Refuse, *this,
              TSEpgControls{*scan, *guide, *navigation});
    return true;
}

void TCDebugMenuTPMS::m_AddSignals(std::initializer_list<ESignalType> signals)
{
    if (m_signalSubscriber == nullptr)
        return;
    for (const ESignalType signal : signals)
        m_signalSubscriber->AddSignal(signal, 0, PROFILE_SCAN, 0, 0);
}

void TCDebugMenuTPMS::m_RemoveSignals(std::initializer_list<ESignalType> signals)
{
    if (m_signalSubscriber == nullptr)
        return;
    for (const ESignalType signal : signals)
        m_signalSubscriber->RemoveSignal(signal, PROFILE_SCAN, 0, 0);
}
