// Tests of guide data, tune-around and the barker channel scan.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"
#include "debugutil/DebugMenuTPMSLookup.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <thread>
#include <vector>

namespace
{

constexpr std::chrono::milliseconds kLastSignalsDelay(1);

const std::vector<ESignalType> kTuneAroundSignals = {SIGNAL_SI_STARTED, SIGNAL_TUNE_AROUND_SERVICE_DONE,
                                                     SIGNAL_TUNE_AROUND_FINISHED};
const std::vector<ESignalType> kBarkerChannelSignals = {SIGNAL_SI_STARTED, SIGNAL_BARKER_CHANNEL_TUNE};

TSTvMode CurrentMode() { return {ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN}; }

void ReportCall(const std::string& called, int result) { console::WriteLine(called + std::to_string(result)); }

// The length, in 16-bit units, of the title of the service's programme; none if there is no title.
std::optional<unsigned int> ReadTitleLength(IServiceGuide& guide, unsigned long long serviceId)
{
    TCProgramData program;
    if (guide.GetProgram(serviceId, program) <= 0)
        return std::nullopt;
    unsigned short title[256] = {};
    unsigned int length = std::size(title) - 1;
    if (!program.Title(title, &length))
        return std::nullopt;
    return length;
}

} // namespace

// The commands of the menu. Leaving the menu does not remove signals, because the scan continues.
class TCDebugMenuTPMS::TCEpgTest
{
public:
    TCEpgTest(TCDebugMenuTPMS& menu, IScanControl& scan, IServiceGuide& guide, IServiceNavigation& navigation)
        : m_menu(menu), m_scan(scan), m_guide(guide), m_navigation(navigation)
    {
    }

    void ListPrograms();
    void CheckTuneAround();
    void StartTuneAround();
    void StopTuneAround();
    void CheckBarkerChannelScan();
    void StartBarkerChannelScan();
    void StopBarkerChannelScan();

private:
    void m_AddSignals(const std::vector<ESignalType>& signals);
    void m_RemoveSignals(const std::vector<ESignalType>& signals);

    TCDebugMenuTPMS& m_menu;
    IScanControl& m_scan;
    IServiceGuide& m_guide;
    IServiceNavigation& m_navigation;
};

const TCMenu<TCDebugMenuTPMS::TCEpgTest&> TCDebugMenuTPMS::m_epgMenu = {
    tpms::Frame(),
    "\t[Test18 List - Epg Data Feeding]\t\n",
    {
        {1, " 1. Check if programs available\n", &TCEpgTest::ListPrograms},
        {2, " 2. Is Tune Around Needed\n", &TCEpgTest::CheckTuneAround},
        {3, " 3. Start Tune Around\n", &TCEpgTest::StartTuneAround},
        {4, " 4. Stop Tune Around\n", &TCEpgTest::StopTuneAround},
        {5, " 5. Is Barker Channel scan available\n", &TCEpgTest::CheckBarkerChannelScan},
        {6, " 6. Start Barker Channel scan\n", &TCEpgTest::StartBarkerChannelScan},
        {7, " 7. Stop Barker Channel scan\n", &TCEpgTest::StopBarkerChannelScan},
    },
};

void TCDebugMenuTPMS::TCEpgTest::ListPrograms()
{
    TCCriteriaHelper criteria;
    TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_MODE_TV, criteria, NAVIGATION_SORT_DEFAULT);
    for (const int field : {tpms::kServiceId, tpms::kFrequency, tpms::kMajor, tpms::kMinor})
        criteria.Fetch(field);
    tpms::TSServiceRecords records;
    m_navigation.FindServices(criteria, records.list, CurrentMode(), 0, 0);
    std::uint16_t withTitle = 0; // wraps at 16 bits, as on a TV set
    for (const TCServiceData* record : records.list) {
        const auto length = ReadTitleLength(m_guide, tpms::ReadServiceIdTag(*record));
        if (!length)
            continue;
        ++withTitle;
        const int frequency = tpms::ReadNumberTag(*record, tpms::kFrequency);
        const int major = tpms::ReadNumberTag(*record, tpms::kMajor);
        const int minor = tpms::ReadNumberTag(*record, tpms::kMinor);
        console::WriteLine("\tfreq:" + std::to_string(frequency) + " -> " + std::to_string(major) + "-" +
                           std::to_string(minor) + ": title size: " + std::to_string(*length));
    }
    console::WriteLine("\tno data in " + std::to_string(records.list.size() - withTitle) + " programs");
}

void TCDebugMenuTPMS::TCEpgTest::CheckTuneAround()
{
    TServiceList services;
    if (m_menu.m_GetServiceList(services, &m_navigation))
        ReportCall("\tcalled IsTuneAroundNeeded, ret: ", m_scan.IsTuneAroundNeeded(services));
}

void TCDebugMenuTPMS::TCEpgTest::StartTuneAround()
{
    m_AddSignals(kTuneAroundSignals);
    TServiceList services;
    if (m_menu.m_GetServiceList(services, &m_navigation))
        ReportCall("\tcalled StartTuneAround, ret: ", m_scan.StartTuneAround(services, "DebugMenu"));
}

void TCDebugMenuTPMS::TCEpgTest::StopTuneAround()
{
    ReportCall("\tcalled StopManualScan, ret: ", m_scan.StopManualScan());
    m_RemoveSignals(kTuneAroundSignals);
}

void TCDebugMenuTPMS::TCEpgTest::CheckBarkerChannelScan()
{
    ReportCall("\tcalled IsBarkerChannelScanAvailable, ret: ", m_scan.IsBarkerChannelScanAvailable(CurrentMode()));
}

void TCDebugMenuTPMS::TCEpgTest::StartBarkerChannelScan()
{
    m_AddSignals(kBarkerChannelSignals);
    ReportCall("\tcalled StartBarkerChannelScan, ret: ", m_scan.StartBarkerChannelScan("", CurrentMode()));
}

void TCDebugMenuTPMS::TCEpgTest::StopBarkerChannelScan()
{
    ReportCall("\tcalled StopBarkerChannelScan, ret: ", m_scan.StopBarkerChannelScan());
    std::this_thread::sleep_for(kLastSignalsDelay); // the scan may still raise signals
    m_RemoveSignals(kBarkerChannelSignals);
}

void TCDebugMenuTPMS::TCEpgTest::m_AddSignals(const std::vector<ESignalType>& signals)
{
    if (m_menu.m_signalSubscriber == nullptr)
        return;
    for (const ESignalType signal : signals)
        m_menu.m_signalSubscriber->AddSignal(signal, 0, PROFILE_SCAN, 0, 0);
}

void TCDebugMenuTPMS::TCEpgTest::m_RemoveSignals(const std::vector<ESignalType>& signals)
{
    if (m_menu.m_signalSubscriber == nullptr)
        return;
    for (const ESignalType signal : signals)
        m_menu.m_signalSubscriber->RemoveSignal(signal, PROFILE_SCAN, 0, 0);
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
    TCEpgTest test(*this, *scan, *guide, *navigation);
    m_RunMenu([] { tpms::PrintMenu(m_epgMenu); },
              [&](int command) { return m_epgMenu.Dispatch(command, tpms::PrintUnsupported, test); });
    return true;
}
