// Interfaces to the service database, the programme guide and the scans. Every operation is synchronous, returns a
// number above 0 on success unless documented otherwise, and may throw std::exception.
#pragma once

#include "tvs-api/ITvsSession.h"
#include "tvs-api/Query.h"
#include "tvs-api/Records.h"

#include <list>
#include <string>
#include <utility>

/// Service ids with the kind of each (5 for a service of the list).
using TServiceList = std::list<std::pair<unsigned long long, unsigned int>>;

/// The service database.
class IService : public ITvsSession
{
public:
    /// Fills in the first service that matches; `count` is 1. Returns 0 or less if none matches.
    virtual int FindService(const TCCriteriaHelper& criteria, TCServiceData& service, int count) = 0;
};

/// Moving through the services on one pipeline.
class IServiceNavigation : public ITvsSession
{
public:
    /// Fills in the current mode.
    virtual int GetTvMode(TSTvMode& mode) = 0;
    virtual int SetTvMode(TSTvMode mode, const std::string& options) = 0;
    /// Switches the mode and the service.
    virtual int SetTvMode(TSTvMode mode, const unsigned long long& serviceId, const std::string& options) = 0;
    virtual int SetDTVMode(EDTVMode mode, bool on) = 0;
    /// The two numbers are reserved, 0.
    virtual int SetService(const unsigned long long& serviceId, int reserved1, int reserved2,
                           const std::string& options) = 0;
    /// Sets the service to show after power-on; `mode` is an input, -1 for the current one. `reserved` is 0.
    virtual int SetBootupService(const unsigned long long& serviceId, TSTvMode* mode, int reserved) = 0;
    /// Appends a record for each match, in list order; the caller deletes them. The two numbers are reserved, 0.
    virtual int FindServices(const TCCriteriaHelper& criteria, std::list<TCServiceData*>& services, TSTvMode mode,
                             int reserved1, int reserved2) = 0;
    /// Writes the service that was last shown in that mode; writes nothing if there is none.
    virtual int GetLatestRFServiceId(unsigned long long& serviceId, TSTvMode mode) = 0;
    virtual int GetLatestVelunaServiceId(unsigned long long& serviceId, TSTvMode mode) = 0;
};

/// The programme guide.
class IServiceGuide : public ITvsSession
{
public:
    /// Fills in the current programme of the service. Returns 0 or less if there is none.
    virtual int GetProgram(const unsigned long long& serviceId, TCProgramData& program) = 0;
};

/// Scans that collect guide data in the background. They raise signals on profile 702.
class IScanControl : public ITvsSession
{
public:
    virtual int IsTuneAroundNeeded(const TServiceList& services) = 0;
    /// Tunes to each service in turn, for that application.
    virtual int StartTuneAround(const TServiceList& services, const std::string& application) = 0;
    virtual int StopManualScan() = 0;
    virtual int IsBarkerChannelScanAvailable(TSTvMode mode) = 0;
    virtual int StartBarkerChannelScan(const std::string& options, TSTvMode mode) = 0;
    virtual int StopBarkerChannelScan() = 0;
};
