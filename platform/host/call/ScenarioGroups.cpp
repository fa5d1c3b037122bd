#include "host/call/ScenarioGroups.h"

#include "host/call/Text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <memory>
#include <stdexcept>

namespace host
{
namespace
{

constexpr int kMaxDelay = 3'600'000; // milliseconds

template <class Number> std::optional<Number> ParseNumber(const std::string& text, int base = 10)
{
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc{} || stop != end || text.empty())
        return std::nullopt;
    return number;
}

template <class Map> std::vector<std::string> KeysOf(const Map& map)
{
    std::vector<std::string> keys;
    std::transform(map.begin(), map.end(), std::back_inserter(keys), [](const auto& entry) { return entry.first; });
    return keys;
}

struct Freer {
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(char** list) const { g_strfreev(list); }
    void operator()(char* text) const { g_free(text); }
};
template <class T> using Owned = std::unique_ptr<T, Freer>;

class Reader
{
public:
    Reader(std::string path, GKeyFile* file) : m_path(std::move(path)), m_file(file) {}

    Scenario Read()
    {
        gsize count = 0;
        const Owned<char*> groups(g_key_file_get_groups(m_file, &count));
        for (gsize i = 0; i < count; ++i)
            ReadGroup(groups.get()[i]);
        return std::move(m_scenario);
    }

private:
    using KeyReader = void (Reader::*)(const std::string& key);

    void ReadGroup(const std::string& group)
    {
        static const std::map<std::string, KeyReader> readers = {
            {"tv", &Reader::ReadTv},         {"vconf", &Reader::ReadVconf}, {"latest", &Reader::ReadLatest},
            {"result", &Reader::ReadResult}, {"throw", &Reader::ReadThrow}, {"delay", &Reader::ReadDelay},
            {"signal", &Reader::ReadSignal},
        };
        m_group = group;
        KeyReader reader = &Reader::ReadService;
        if (group.rfind("service", 0) == 0) {
            m_scenario.services.emplace_back();
        } else {
            const auto found = readers.find(group);
            if (found == readers.end()) {
                std::vector<std::string> known = KeysOf(readers);
                known.emplace_back("service");
                throw std::runtime_error("scenario " + m_path + ": [" + Shortened(group) + "]: unknown group" +
                                         NearestTo(group, known));
            }
            reader = found->second;
        }
        gsize count = 0;
        const Owned<char*> keys(g_key_file_get_keys(m_file, group.c_str(), &count, nullptr));
        for (gsize i = 0; i < count; ++i)
            (this->*reader)(keys.get()[i]);
    }

    void ReadTv(const std::string& key)
    {
        static const std::map<std::string, std::int32_t Scenario::*> numbers = {
            {"antenna_mode", &Scenario::antennaMode},
            {"service_mode", &Scenario::serviceMode},
            {"zoom_sharing_type", &Scenario::zoomSharingType},
        };
        static const std::map<std::string, bool Scenario::*> flags = {
            {"caption_exist", &Scenario::captionExist},
            {"pid_set_status", &Scenario::pidSetStatus},
            {"zoom_available", &Scenario::zoomAvailable},
        };
        if (const auto number = numbers.find(key); number != numbers.end()) {
            m_scenario.*number->second = Number<std::int32_t>(key);
        } else if (const auto flag = flags.find(key); flag != flags.end()) {
            m_scenario.*flag->second = Bool(key);
        } else {
            std::vector<std::string> known = KeysOf(numbers);
            const std::vector<std::string> more = KeysOf(flags);
            known.insert(known.end(), more.begin(), more.end());
            Fail(key, "unknown key" + NearestTo(key, known));
        }
    }

    void ReadVconf(const std::string& key) { m_scenario.vconf[key] = Number<std::int32_t>(key); }

    void ReadLatest(const std::string& key)
    {
        static const std::map<std::string, std::optional<std::uint64_t> Scenario::*> ids = {
            {"rf_cable", &Scenario::latestRFCable},
            {"rf_air", &Scenario::latestRFAir},
            {"veluna_cable", &Scenario::latestVelunaCable},
            {"veluna_air", &Scenario::latestVelunaAir},
        };
        const auto id = ids.find(key);
        if (id == ids.end())
            Fail(key, "unknown key" + NearestTo(key, KeysOf(ids)));
        m_scenario.*id->second = Number<std::uint64_t>(key);
    }

    void ReadService(const std::string& key)
    {
        ScenarioService& service = m_scenario.services.back();
        if (key == "title") {
            service.title = Text(key);
            return;
        }
        const auto tag = ParseNumber<std::uint16_t>(key);
        if (!tag || std::to_string(*tag) != key)
            Fail(key, "unknown key, neither the number of a field nor title");
        std::optional<std::uint64_t> value;
        if (!Raw(key).empty())
            value = *tag == kServiceIdField ? Number<std::uint64_t>(key) : TagValue(key);
        service.tags[*tag] = value;
    }

    // Fields other than the service id are 32 bits wide, and some of them are counts without a sign.
    std::uint64_t TagValue(const std::string& key)
    {
        const auto value = ParseNumber<std::int64_t>(Raw(key));
        if (!value || *value < std::numeric_limits<std::int32_t>::min() ||
            *value > std::numeric_limits<std::uint32_t>::max())
            FailValue(key, "not a number of 32 bits");
        return static_cast<std::uint32_t>(*value);
    }

    void ReadResult(const std::string& key)
    {
        const std::string value = Raw(key);
        const std::size_t blank = value.find_first_of(" \t");
        const std::string word = blank == std::string::npos ? "" : value.substr(value.find_first_not_of(" \t", blank));
        Fault& fault = FaultAt(key);
        fault.result = ParseNumber<std::int32_t>(value.substr(0, blank));
        fault.object = word == "object";
        if (!fault.result)
            FailValue(key, "not a number of 32 bits");
        if (!word.empty() && word != "object")
            FailValue(key, "only the word object may stand behind the number");
        if (fault.object && !IsFactory(OperationAt(key)))
            FailValue(key, "only a factory makes an object");
    }

    void ReadThrow(const std::string& key) { FaultAt(key).thrown = Text(key); }

    void ReadDelay(const std::string& key)
    {
        const auto delay = ParseNumber<std::int32_t>(Raw(key));
        if (!delay || *delay < 0 || *delay > kMaxDelay)
            FailValue(key, "not milliseconds from 0 to " + std::to_string(kMaxDelay));
        FaultAt(key).delay = std::chrono::milliseconds(*delay);
    }

    // Hexadecimal bytes of two digits with blanks between them.
    void ReadSignal(const std::string& key)
    {
        const auto type = ParseNumber<std::int32_t>(key);
        if (!type || std::to_string(*type) != key)
            Fail(key, "not the number of a signal type");
        TSSignalData& data = m_scenario.signals[*type];
        const std::string value = Raw(key);
        std::size_t count = 0;
        for (std::size_t at = 0; at < value.size(); at = value.find_first_not_of(" \t", at + 2)) {
            const auto byte = ParseNumber<std::uint8_t>(value.substr(at, 2), 16);
            const bool ends = at + 2 >= value.size() || value[at + 2] == ' ' || value[at + 2] == '\t';
            if (!byte || at + 2 > value.size() || !ends)
                FailValue(key, "not bytes of two hexadecimal digits");
            if (count == kSignalBytes)
                FailValue(key, "more than " + std::to_string(kSignalBytes) + " bytes");
            data.bytes[count++] = *byte;
        }
    }

    // `NAME` or `NAME#N`.
    Op OperationAt(const std::string& key)
    {
        const std::string name = key.substr(0, key.find('#'));
        const auto operation = OperationNamed(name);
        if (!operation)
            Fail(key, "unknown operation" + NearestTo(name, OperationNames()));
        return *operation;
    }

    Fault& FaultAt(const std::string& key)
    {
        Faults& faults = m_scenario.faults[static_cast<std::size_t>(OperationAt(key))];
        const std::size_t mark = key.find('#');
        if (mark == std::string::npos)
            return faults.always;
        const std::string number = key.substr(mark + 1);
        const auto call = ParseNumber<unsigned>(number);
        if (!call || *call == 0 || std::to_string(*call) != number)
            Fail(key, "calls are counted from 1");
        return faults.byCall[*call];
    }

    template <class T> T Number(const std::string& key)
    {
        const auto number = ParseNumber<T>(Raw(key));
        if (!number)
            FailValue(key, sizeof(T) == sizeof(std::int32_t) ? "not a number of 32 bits" : "not a number of 64 bits");
        return *number;
    }

    bool Bool(const std::string& key)
    {
        const std::string value = Raw(key);
        if (value != "true" && value != "false")
            FailValue(key, "neither true nor false");
        return value == "true";
    }

    // The value as it stands, without the blanks around it.
    std::string Raw(const std::string& key)
    {
        const Owned<char> value(g_key_file_get_value(m_file, m_group.c_str(), key.c_str(), nullptr));
        return value ? Stripped(value.get()) : "";
    }

    std::string Text(const std::string& key)
    {
        GError* raised = nullptr;
        const Owned<char> value(g_key_file_get_string(m_file, m_group.c_str(), key.c_str(), &raised));
        const Owned<GError> error(raised);
        if (!value || error)
            FailValue(key, "not a text in UTF-8, or a wrong escape");
        return value.get();
    }

    [[noreturn]] void FailValue(const std::string& key, const std::string& reason)
    {
        const std::string value = Raw(key);
        const bool remark = value.find('#') != std::string::npos;
        Fail(key, reason + ": " + Shortened(value) + (remark ? " (a comment needs a line of its own)" : ""));
    }

    [[noreturn]] void Fail(const std::string& key, const std::string& reason) const
    {
        throw std::runtime_error("scenario " + m_path + ": [" + Shortened(m_group) + "] " + Shortened(key) + ": " +
                                 reason);
    }

    std::string m_path;
    GKeyFile* m_file;
    std::string m_group;
    Scenario m_scenario;
};

} // namespace

Scenario ReadGroups(const std::string& path, GKeyFile* file) { return Reader(path, file).Read(); }

} // namespace host
