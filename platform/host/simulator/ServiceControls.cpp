// Control objects of the service database, navigation, the guide and scans.
#include "host/simulator/Controls.h"
#include "host/simulator/Signals.h"

#include <glib.h>

namespace host
{
namespace
{

constexpr Pipeline kScanPipeline{PROFILE_SCAN, 0};

class Service : public Control<IService>
{
public:
    using Control::Control;

    int FindService(const TCCriteriaHelper& criteria, TCServiceData& service, int count) override
    {
        return m_tv.Call(Op::IService_FindService, With(criteria, count), [&](Outputs&) {
            for (const ScenarioService& candidate : m_tv.Tv().services) {
                if (Simulator::Matches(candidate, criteria)) {
                    Simulator::Fetch(candidate, criteria, service);
                    return 1;
                }
            }
            return 0;
        });
    }
};

class ServiceNavigation : public Control<IServiceNavigation>
{
public:
    using Control::Control;

    int GetTvMode(TSTvMode& mode) override
    {
        return m_Succeed(Op::IServiceNavigation_GetTvMode, With(),
                         [&](Outputs& outputs) { outputs.Write(mode, m_tv.Mode(m_pipeline)); });
    }
    int SetTvMode(TSTvMode mode, const std::string& options) override
    {
        return m_Succeed(Op::IServiceNavigation_SetTvMode, With(mode, options),
                         [&](Outputs&) { m_tv.pipelines[m_pipeline].mode = mode; });
    }
    int SetTvMode(TSTvMode mode, const unsigned long long& serviceId, const std::string& options) override
    {
        return m_Succeed(Op::IServiceNavigation_SetTvMode, With(mode, serviceId, options), [&](Outputs&) {
            m_tv.pipelines[m_pipeline].mode = mode;
            m_tv.pipelines[m_pipeline].info.serviceId = serviceId;
        });
    }
    int SetDTVMode(EDTVMode mode, bool on) override { return m_Accept(Op::IServiceNavigation_SetDTVMode, mode, on); }
    int SetService(const unsigned long long& serviceId, int reserved1, int reserved2,
                   const std::string& options) override
    {
        return m_Succeed(Op::IServiceNavigation_SetService, With(serviceId, reserved1, reserved2, options),
                         [&](Outputs&) { m_tv.pipelines[m_pipeline].info.serviceId = serviceId; });
    }
    int SetBootupService(const unsigned long long& serviceId, TSTvMode* mode, int reserved) override
    {
        return m_Accept(Op::IServiceNavigation_SetBootupService, serviceId, mode, reserved);
    }
    int FindServices(const TCCriteriaHelper& criteria, std::list<TCServiceData*>& services, TSTvMode mode,
                     int reserved1, int reserved2) override
    {
        return m_Succeed(Op::IServiceNavigation_FindServices, With(criteria, mode, reserved1, reserved2),
                         [&](Outputs&) {
                             for (const ScenarioService& candidate : m_tv.Tv().services) {
                                 if (!Simulator::Matches(candidate, criteria))
                                     continue;
                                 auto record = std::make_unique<TCServiceData>();
                                 Simulator::Fetch(candidate, criteria, *record);
                                 services.push_back(record.get());
                                 (void)record.release(); // the caller owns it now
                             }
                         });
    }
    int GetLatestRFServiceId(unsigned long long& serviceId, TSTvMode mode) override
    {
        return m_WriteLatest(Op::IServiceNavigation_GetLatestRFServiceId, serviceId, mode, m_tv.Tv().latestRFCable,
                             m_tv.Tv().latestRFAir);
    }
    int GetLatestVelunaServiceId(unsigned long long& serviceId, TSTvMode mode) override
    {
        return m_WriteLatest(Op::IServiceNavigation_GetLatestVelunaServiceId, serviceId, mode,
                             m_tv.Tv().latestVelunaCable, m_tv.Tv().latestVelunaAir);
    }

private:
    int m_WriteLatest(Op operation, unsigned long long& serviceId, const TSTvMode& mode,
                      const std::optional<std::uint64_t>& cable, const std::optional<std::uint64_t>& air)
    {
        return m_Succeed(operation, With(mode), [&](Outputs& outputs) {
            if (mode.antennaMode == ANTENNA_MODE_CABLE && cable)
                outputs.Write(serviceId, *cable);
            if (mode.antennaMode == ANTENNA_MODE_AIR && air)
                outputs.Write(serviceId, *air);
        });
    }
};

class ServiceGuide : public Control<IServiceGuide>
{
public:
    using Control::Control;

    int GetProgram(const unsigned long long& serviceId, TCProgramData& program) override
    {
        return m_tv.Call(Op::IServiceGuide_GetProgram, With(serviceId), [&](Outputs&) {
            const ScenarioService* service = m_tv.FindService(serviceId);
            if (service == nullptr || !service->title)
                return 0;
            glong length = 0;
            g_autofree gunichar2* title = g_utf8_to_utf16(service->title->c_str(), -1, nullptr, &length, nullptr);
            program.SetTitle({title, title + length});
            return 1;
        });
    }
};

class ScanControl : public Control<IScanControl>
{
public:
    using Control::Control;

    int IsTuneAroundNeeded(const TServiceList& services) override
    {
        return m_Accept(Op::IScanControl_IsTuneAroundNeeded, services);
    }
    int StartTuneAround(const TServiceList& services, const std::string& application) override
    {
        return m_Succeed(Op::IScanControl_StartTuneAround, With(services, application), [&](Outputs&) {
            SignalHub& hub = SignalHub::Instance();
            hub.Raise(SIGNAL_SI_STARTED, kScanPipeline, {});
            for (const auto& service : services) {
                TSSignalData data;
                for (unsigned i = 0; i < sizeof service.first; ++i)
                    data.bytes[i] = static_cast<unsigned char>(service.first >> (8 * i));
                hub.Raise(SIGNAL_TUNE_AROUND_SERVICE_DONE, kScanPipeline, data);
            }
            hub.Raise(SIGNAL_TUNE_AROUND_FINISHED, kScanPipeline, {}); // 0: completed
        });
    }
    int StopManualScan() override { return m_Accept(Op::IScanControl_StopManualScan); }
    int IsBarkerChannelScanAvailable(TSTvMode mode) override
    {
        return m_Accept(Op::IScanControl_IsBarkerChannelScanAvailable, mode);
    }
    int StartBarkerChannelScan(const std::string& options, TSTvMode mode) override
    {
        return m_Succeed(Op::IScanControl_StartBarkerChannelScan, With(options, mode), [&](Outputs&) {
            TSSignalData success;
            success.bytes[0] = 1;
            SignalHub& hub = SignalHub::Instance();
            hub.Raise(SIGNAL_SI_STARTED, kScanPipeline, {});
            hub.Raise(SIGNAL_BARKER_CHANNEL_TUNE, kScanPipeline, success);
        });
    }
    int StopBarkerChannelScan() override { return m_Accept(Op::IScanControl_StopBarkerChannelScan); }
};

} // namespace
} // namespace host

FACTORY(Service)
PIPELINE_FACTORY(ServiceNavigation)
FACTORY(ServiceGuide)
FACTORY(ScanControl)
