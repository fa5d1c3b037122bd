// Reading the service database.
#pragma once

#include "tvs-api/Services.h"

#include <list>

namespace tpms
{

/// The records of a query, deleted at the end of their scope.
struct TSServiceRecords {
    TSServiceRecords() = default;
    ~TSServiceRecords();
    TSServiceRecords(const TSServiceRecords&) = delete;
    TSServiceRecords& operator=(const TSServiceRecords&) = delete;

    std::list<TCServiceData*> list;
};

// Fields of a service record.
constexpr int kChannelType = 1;
constexpr int kServiceProfile = 3;
constexpr int kFrequency = 4;
constexpr int kServiceId = 12;
constexpr int kMajor = 13;
constexpr int kMinor = 14;
constexpr int kAntennaOfVC = 115; // of a VC service only
constexpr int kChannelTypeVC = 9;

/// The service id; INVALID_SERVICE_ID, and a report in the platform's log, when the record has none.
unsigned long long ReadServiceIdTag(const TCServiceData& service);
/// A field of 32 bits; -1, and the same report, when the record does not have it.
int ReadNumberTag(const TCServiceData& service, int field);

/// The profile of the services of that mode.
EServiceProfile ServiceProfileOf(const TSTvMode& mode);
/// Services of that profile and major channel number; delivers the service id.
TCCriteriaHelper ChannelCriteria(EServiceProfile profile, unsigned short major);
/// Fills in the first service; false, with "FindService failed" on the console, when there is none.
bool FindService(IService& service, const TCCriteriaHelper& criteria, TCServiceData& data);
/// The id of that service; INVALID_SERVICE_ID without one.
unsigned long long FindServiceId(IService& service, const TCCriteriaHelper& criteria);

} // namespace tpms
