// Queries of the service database.
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

/// The service id. If the record has none: INVALID_SERVICE_ID, with messages in the platform's log.
unsigned long long ReadServiceIdTag(const TCServiceData& service);
/// A field of 32 bits. If the record has none: -1, with the same messages.
int ReadNumberTag(const TCServiceData& service, int field);

/// The profile of the services in that mode.
EServiceProfile ServiceProfileOf(const TSTvMode& mode);
/// Criteria for the services of that profile and major channel number; fetches the service id.
TCCriteriaHelper ChannelCriteria(EServiceProfile profile, unsigned short major);
/// Fills in the first service. If there is none, prints "FindService failed" and returns false.
bool FindService(IService& service, const TCCriteriaHelper& criteria, TCServiceData& data);
/// The id of the first service; INVALID_SERVICE_ID if there is none.
unsigned long long FindServiceId(IService& service, const TCCriteriaHelper& criteria);

} // namespace tpms
