// Records that TV service operations take and fill.
#pragma once

#include "tvs-api-internal/Marshalable.h"
#include "tvs-api/Types.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A TV mode: antenna and kind of service. Both -1: the current mode, or a mode to fill in.
struct TSTvMode : TCMarshalable {
    TSTvMode(EAntennaMode antenna, EServiceMode service) : antennaMode(antenna), serviceMode(service) {}

    EAntennaMode antennaMode;
    EServiceMode serviceMode;
};

/// A rectangle on the screen, in pixels.
struct TSRectInfo : TCMarshalable {
    TSRectInfo() = default;
    TSRectInfo(int left, int top, int w, int h) : x(left), y(top), width(w), height(h) {}

    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// One field of a service record. Lists have very many fields, so a tag stores its value without an allocation.
class TCTag
{
public:
    /// A field without a value.
    TCTag() = default;
    /// A field with a value of 32 or 64 bits.
    explicit TCTag(std::uint32_t value);
    explicit TCTag(std::uint64_t value);

    /// The value, owned by the tag: 64 bits for the service id (12), 32 bits otherwise; null if there is none.
    const void* GetData() const;

private:
    alignas(std::uint64_t) unsigned char m_data[sizeof(std::uint64_t)] = {};
    bool m_hasData = false;
};

/// The fields of a service record by number.
class TCTagSet
{
public:
    /// The field, owned by the set; null if there is none.
    const TCTag* GetTag(int number) const;
    /// Adds a new field.
    void AddTag(int number, const TCTag& tag);

private:
    std::vector<std::pair<int, TCTag>> m_tags; // a handful
};

/// One service of the TV service's database.
class TCServiceData
{
public:
    /// The fields that were fetched, owned by the record; null if there are none.
    const TCTagSet* GetTagSet() const;
    /// Adds a new field. The first one creates the tag set.
    void AddTag(int number, const TCTag& tag);

private:
    std::optional<TCTagSet> m_tags;
};

/// One programme of the guide.
class TCProgramData
{
public:
    /// Copies the title in UTF-16 to `buffer`, without a terminating zero. `length` is the capacity on entry and the
    /// length of the title on return, in 16-bit units; a longer title is truncated. Returns false if there is no title.
    bool Title(unsigned short* buffer, unsigned int* length) const;
    /// Sets the title.
    void SetTitle(std::u16string title);

private:
    std::u16string m_title;
};

/// Source and service of one pipeline.
struct TCPipelineInfo {
    ESource source = SOURCE_TV;
    unsigned long long serviceId = INVALID_SERVICE_ID;
};

/// State of all pipelines.
struct TCTPMSStatus {
    std::map<TVSHandle, TCPipelineInfo> pipelines;
};
