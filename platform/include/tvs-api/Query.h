// Queries of the service database.
#pragma once

#include "tvs-api/Types.h"

#include <vector>

/// A query: conditions, all of which must hold, and the fields to fetch. Fields have the numbers of a service record.
class TCCriteriaHelper
{
public:
    /// One call of Where, WhereNot, Fetch or GetNavigationCriteria.
    struct Step {
        enum Kind { NAVIGATION, WHERE, WHERE_NOT, FETCH };
        Kind kind;
        int field; ///< NAVIGATION: the navigation mode
        int value; ///< NAVIGATION: the sort mode; FETCH: unused
    };

    /// Selects services whose field has this value.
    void Where(int field, int value);
    /// Excludes services whose field has this value.
    void WhereNot(int field, int value);
    /// Requests this field of each service.
    void Fetch(int field);

    /// All calls so far, in order.
    const std::vector<Step>& GetSteps() const { return m_steps; }

private:
    friend class TCNavigationModeHelper;
    std::vector<Step> m_steps;
};

class TCNavigationModeHelper
{
public:
    /// Adds the conditions of a navigation mode to `criteria`.
    static void GetNavigationCriteria(ENavigationMode mode, TCCriteriaHelper& criteria, ENavigationSortMode sort);
};

class TCServiceUtility
{
public:
    /// Channel type (field 1) of digital services over this antenna: 2, 4, 6; 0 for an unknown antenna.
    static int AntennaModeToDigitalChannelType(EAntennaMode antenna);
    /// Service mode of a service profile; -1 for an unknown profile.
    static EServiceMode ServiceProfileToServiceMode(EServiceProfile profile);
};
