// The records that operations take and fill.
#include "tvs-api/Records.h"
#include "tvs-api/Query.h"

#include <algorithm>
#include <utility>

TCTag::TCTag(const void* data, std::size_t size)
    : m_data(static_cast<const unsigned char*>(data), static_cast<const unsigned char*>(data) + size)
{
}

const void* TCTag::GetData() const { return m_data.empty() ? nullptr : m_data.data(); }

const TCTag* TCTagSet::GetTag(int number) const
{
    const auto found = m_tags.find(number);
    return found == m_tags.end() ? nullptr : &found->second;
}

void TCTagSet::SetTag(int number, TCTag tag) { m_tags[number] = std::move(tag); }

const TCTagSet* TCServiceData::GetTagSet() const { return m_tags.get(); }

void TCServiceData::SetTag(int number, TCTag tag)
{
    if (!m_tags)
        m_tags = std::make_unique<TCTagSet>();
    m_tags->SetTag(number, std::move(tag));
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

void TCCriteriaHelper::Fetch(int field) { m_steps.push_back({Step::FETCH, field, 0}); }

const std::vector<TCCriteriaHelper::Step>& TCCriteriaHelper::GetSteps() const { return m_steps; }

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
    case ANTENNA_MODE_UNKNOWN:
        break;
    }
    return 0;
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
