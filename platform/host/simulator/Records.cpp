// The records that operations take and fill.
#include "tvs-api/Records.h"
#include "tvs-api/Query.h"

#include <algorithm>
#include <cstring>
#include <utility>

TCTag::TCTag(std::uint32_t value) : m_hasData(true) { std::memcpy(m_data, &value, sizeof value); }
TCTag::TCTag(std::uint64_t value) : m_hasData(true) { std::memcpy(m_data, &value, sizeof value); }
const void* TCTag::GetData() const { return m_hasData ? m_data : nullptr; }

const TCTag* TCTagSet::GetTag(int number) const
{
    const auto found =
        std::find_if(m_tags.begin(), m_tags.end(), [number](const auto& tag) { return tag.first == number; });
    return found == m_tags.end() ? nullptr : &found->second;
}

void TCTagSet::AddTag(int number, const TCTag& tag) { m_tags.emplace_back(number, tag); }
const TCTagSet* TCServiceData::GetTagSet() const { return m_tags ? &*m_tags : nullptr; }

void TCServiceData::AddTag(int number, const TCTag& tag)
{
    if (!m_tags)
        m_tags.emplace();
    m_tags->AddTag(number, tag);
}

bool TCProgramData::Title(unsigned short* buffer, unsigned int* length) const
{
    if (m_title.empty())
        return false;
    const std::size_t count = std::min<std::size_t>(m_title.size(), *length);
    std::copy_n(m_title.begin(), count, buffer);
    *length = static_cast<unsigned int>(count);
    return true;
}

void TCProgramData::SetTitle(std::u16string title) { m_title = std::move(title); }
void TCCriteriaHelper::Where(int field, int value) { m_steps.push_back({Step::WHERE, field, value}); }
void TCCriteriaHelper::WhereNot(int field, int value) { m_steps.push_back({Step::WHERE_NOT, field, value}); }
void TCCriteriaHelper::Fetch(int field) { m_steps.push_back({Step::FETCH, field, {}}); }

void TCNavigationModeHelper::GetNavigationCriteria(ENavigationMode mode, TCCriteriaHelper& criteria,
                                                   ENavigationSortMode sort)
{
    criteria.m_steps.push_back({TCCriteriaHelper::Step::NAVIGATION, mode, sort});
}

int TCServiceUtility::AntennaModeToDigitalChannelType(EAntennaMode antenna)
{
    switch (antenna) {
    case ANTENNA_MODE_AIR:
        return 2;
    case ANTENNA_MODE_CABLE:
        return 4;
    case ANTENNA_MODE_SATELLITE:
        return 6;
    default:
        return 0;
    }
}

EServiceMode TCServiceUtility::ServiceProfileToServiceMode(EServiceProfile profile)
{
    switch (profile) {
    case SERVICE_PROFILE_DTV:
        return SERVICE_MODE_DTV;
    case SERVICE_PROFILE_OTHER:
        return static_cast<EServiceMode>(1);
    }
    return SERVICE_MODE_UNKNOWN;
}
