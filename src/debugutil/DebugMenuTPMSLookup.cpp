#include "debugutil/DebugMenuTPMSLookup.h"

#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"
#include "tvs-api-internal/Diagnostics.h"
#include "vconf/vconf.h"

#include <cstring>

namespace tpms
{
namespace
{

constexpr unsigned int kServiceOfTheList = 5;

template <class Number> Number ReadTag(const TCServiceData& service, int field)
{
    const TCTagSet* tags = service.GetTagSet();
    const TCTag* tag = tags == nullptr ? nullptr : tags->GetTag(field);
    const void* data = tag == nullptr ? nullptr : tag->GetData();
    if (data == nullptr) {
        if (tag != nullptr)
            TCApiPrintMessage("tag %d has do data", field);
        TCApiPrintMessage("*************************** ASSERT TAG ***************************");
        TCApiPrintMessage("******************* ASSERT: missing tag[%3d] *********************", field);
        TCApiPrintMessage("*************************** ASSERT TAG ***************************");
        return static_cast<Number>(-1);
    }
    Number number;
    std::memcpy(&number, data, sizeof number);
    return number;
}

} // namespace

TSServiceRecords::~TSServiceRecords()
{
    for (const TCServiceData* record : list)
        delete record;
}

unsigned long long ReadServiceIdTag(const TCServiceData& service)
{
    return ReadTag<unsigned long long>(service, kServiceId);
}

int ReadNumberTag(const TCServiceData& service, int field) { return ReadTag<std::int32_t>(service, field); }

EServiceProfile ServiceProfileOf(const TSTvMode& mode)
{
    return mode.serviceMode == SERVICE_MODE_DTV ? SERVICE_PROFILE_DTV : SERVICE_PROFILE_OTHER;
}

TCCriteriaHelper ChannelCriteria(EServiceProfile profile, unsigned short major)
{
    TCCriteriaHelper criteria;
    criteria.Where(kServiceProfile, profile);
    criteria.Where(23, 1); // only the database knows the meaning of fields 23 and 25
    criteria.Where(25, 0);
    criteria.Where(kMajor, major);
    criteria.Fetch(kServiceId);
    return criteria;
}

bool FindService(IService& service, const TCCriteriaHelper& criteria, TCServiceData& data)
{
    if (service.FindService(criteria, data, 1) > 0)
        return true;
    console::Write("FindService failed");
    return false;
}

unsigned long long FindServiceId(IService& service, const TCCriteriaHelper& criteria)
{
    TCServiceData data;
    return FindService(service, criteria, data) ? ReadServiceIdTag(data) : INVALID_SERVICE_ID;
}

} // namespace tpms

bool TCDebugMenuTPMS::m_GetServiceList(TServiceList& services, IServiceNavigation* navigation)
{
    TSTvMode mode(ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN);
    if (navigation->GetTvMode(mode) <= 0) {
        console::WriteLine("GetTvMode failed!");
        return false;
    }
    TCCriteriaHelper criteria;
    TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_MODE_TV, criteria, NAVIGATION_SORT_DEFAULT);
    criteria.WhereNot(tpms::kChannelType, tpms::kChannelTypeVC);
    criteria.Fetch(tpms::kServiceId);
    tpms::TSServiceRecords records;
    navigation->FindServices(criteria, records.list, mode, 0, 0);
    if (records.list.empty()) {
        console::WriteLine("services.empty()!");
        return false;
    }
    for (const TCServiceData* record : records.list)
        services.emplace_back(tpms::ReadServiceIdTag(*record), tpms::kServiceOfTheList);
    return true;
}

unsigned long long TCDebugMenuTPMS::m_GetServiceId(EAntennaMode antenna, unsigned short major)
{
    const auto service = tpms::CreateService();
    if (!service)
        return INVALID_SERVICE_ID;
    const auto navigation = tpms::CreateServiceNavigation();
    if (!navigation)
        return INVALID_SERVICE_ID;
    TSTvMode mode(ANTENNA_MODE_UNKNOWN, SERVICE_MODE_UNKNOWN);
    navigation->GetTvMode(mode);
    TCCriteriaHelper criteria = tpms::ChannelCriteria(tpms::ServiceProfileOf(mode), major);
    criteria.Where(tpms::kChannelType, TCServiceUtility::AntennaModeToDigitalChannelType(antenna));
    return tpms::FindServiceId(*service, criteria);
}

unsigned long long TCDebugMenuTPMS::m_GetServiceId(unsigned short major)
{
    const auto service = tpms::CreateService();
    if (!service)
        return INVALID_SERVICE_ID;
    TCCriteriaHelper criteria;
    TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_MODE_CHANNEL, criteria, NAVIGATION_SORT_DEFAULT);
    criteria.Where(tpms::kMajor, major);
    criteria.Fetch(tpms::kServiceId);
    return tpms::FindServiceId(*service, criteria);
}

int TCDebugMenuTPMS::m_GetVconfInt(const char* key, int* value) { return vconf_get_int(key, value); }
