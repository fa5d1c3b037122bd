// Reads the groups of a scenario's key file.
#include "host/call/Scenario.h"
#include "host/call/Text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <glib.h>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <unordered_set>
#include <variant>

namespace host
{
namespace
{

constexpr int kMaxDelay = 3'600'000; // milliseconds
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";
constexpr const char* kService = "service"; // the first word of a service's group

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

class Reader
{
public:
    explicit Reader(std::string path) : m_path(std::move(path))
    {
#define KEY(group, key, type, member, value)                                                                           \
    m_fields[#group][#key] = &Scenario::member;                                                                        \
    m_readers[#group] = &Reader::m_ReadField;
#include "host/call/ScenarioKeys.def"
#undef KEY
    }

    Scenario Read(std::string text)
    {
        if (g_str_has_prefix(text.c_str(), kByteOrderMark))
            text.erase(0, std::strlen(kByteOrderMark));
        if (text.find('\0') != std::string::npos)
            m_Fail("contains a zero byte");
        m_CheckLines(text);
        g_autoptr(GError) error = nullptr;
        g_key_file_load_from_data(m_file.get(), text.c_str(), text.size(), G_KEY_FILE_KEEP_TRANSLATIONS, &error);
        if (error != nullptr)
            m_Fail(Shortened(error->message));
        g_auto(GStrv) groups = g_key_file_get_groups(m_file.get(), nullptr);
        for (char** group = groups; *group != nullptr; ++group)
            m_ReadGroup(*group);
        return std::move(m_scenario);
    }

private:
    using KeyReader = void (Reader::*)(const std::string& key);
    using Field = std::variant<std::int32_t Scenario::*, bool Scenario::*, std::optional<std::uint64_t> Scenario::*>;

    // Reports groups and keys that appear twice; GLib would merge them without an error.
    void m_CheckLines(const std::string& text)
    {
        std::unordered_set<std::string> groups, keys;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            line = Stripped(line);
            if (line.empty() || line[0] == '#')
                continue;
            if (line[0] == '[') {
                m_group = line.substr(1, line.rfind(']') - 1);
                keys.clear();
                if (!groups.insert(m_group).second)
                    m_Fail("[" + Shortened(m_group) + "]: appears twice");
                continue;
            }
            const std::size_t end = line.find('=');
            if (end == std::string::npos)
                m_Fail("neither a group, a key nor a comment: " + Shortened(line));
            const std::string key = Stripped(line.substr(0, end));
            if (!keys.insert(key).second)
                m_FailKey(key, "appears twice");
        }
    }

    void m_ReadGroup(const std::string& group)
    {
        m_group = group;
        const bool isService = group.rfind(kService, 0) == 0;
        if (isService)
            m_scenario.services.emplace_back();
        const auto reader = m_readers.find(isService ? kService : group);
        if (reader == m_readers.end())
            m_Fail("[" + Shortened(group) + "]: unknown group" + Suggestion(group, KeysOf(m_readers)));
        g_auto(GStrv) keys = g_key_file_get_keys(m_file.get(), group.c_str(), nullptr, nullptr);
        for (char** key = keys; *key != nullptr; ++key)
            (this->*reader->second)(*key);
    }

    // Reads a key that sets one member of the scenario.
    void m_ReadField(const std::string& key)
    {
        const auto& fields = m_fields.at(m_group);
        const auto field = fields.find(key);
        if (field == fields.end())
            m_FailKey(key, "unknown key" + Suggestion(key, KeysOf(fields)));
        std::visit([&](auto member) { m_ReadValue(key, m_scenario.*member); }, field->second);
    }

    void m_ReadVconf(const std::string& key) { m_ReadValue(key, m_scenario.vconf[key]); }

    void m_ReadService(const std::string& key)
    {
        ScenarioService& service = m_scenario.services.back();
        if (key == "title") {
            service.title = m_Text(key);
            return;
        }
        const auto tag = ParseNumber<std::uint16_t>(key);
        if (!tag || std::to_string(*tag) != key)
            m_FailKey(key, "unknown key, neither the number of a field nor title");
        std::optional<std::uint64_t>& value = service.tags[*tag];
        if (m_Raw(key).empty())
            return;
        if (*tag == kServiceIdField) {
            m_ReadValue(key, value);
            return;
        }
        // The other fields have 32 bits, some with a sign and some without.
        const auto number = ParseNumber<std::int64_t>(m_Raw(key));
        if (!number || *number < std::numeric_limits<std::int32_t>::min() ||
            *number > std::numeric_limits<std::uint32_t>::max())
            m_FailValue(key, "not a number of 32 bits");
        value = static_cast<std::uint32_t>(*number);
    }

    void m_ReadResult(const std::string& key)
    {
        std::istringstream value(m_Raw(key));
        std::string number, word;
        std::getline(value >> number >> std::ws, word);
        Fault& fault = m_FaultAt(key);
        fault.result = ParseNumber<std::int32_t>(number);
        fault.object = word == "object";
        if (!fault.result)
            m_FailValue(key, "not a number of 32 bits");
        if (!word.empty() && word != "object")
            m_FailValue(key, "only the word object may follow the number");
        if (fault.object && !IsFactory(m_OperationAt(key)))
            m_FailValue(key, "only a factory makes an object");
    }

    void m_ReadThrow(const std::string& key) { m_FaultAt(key).thrown = m_Text(key); }

    void m_ReadDelay(const std::string& key)
    {
        const auto delay = ParseNumber<std::int32_t>(m_Raw(key));
        if (!delay || *delay < 0 || *delay > kMaxDelay)
            m_FailValue(key, "not milliseconds from 0 to " + std::to_string(kMaxDelay));
        m_FaultAt(key).delay = std::chrono::milliseconds(*delay);
    }

    // Reads bytes of two hexadecimal digits with blanks between them.
    void m_ReadSignal(const std::string& key)
    {
        const auto type = ParseNumber<std::int32_t>(key);
        if (!type || std::to_string(*type) != key)
            m_FailKey(key, "not the number of a signal type");
        TSSignalData& data = m_scenario.signals[*type];
        std::istringstream value(m_Raw(key));
        std::size_t count = 0;
        for (std::string word; value >> word;) {
            const auto byte = ParseNumber<std::uint8_t>(word, 16);
            if (!byte || word.size() != 2)
                m_FailValue(key, "not bytes of two hexadecimal digits");
            if (count == kSignalBytes)
                m_FailValue(key, "more than " + std::to_string(kSignalBytes) + " bytes");
            data.bytes[count++] = *byte;
        }
    }

    // The operation of a key `NAME` or `NAME#N`.
    Op m_OperationAt(const std::string& key)
    {
        const std::string name = key.substr(0, key.find('#'));
        const auto operation = OperationNamed(name);
        if (!operation)
            m_FailKey(key, "unknown operation" + Suggestion(name, OperationNames()));
        return *operation;
    }

    Fault& m_FaultAt(const std::string& key)
    {
        Faults& faults = m_scenario.faults[static_cast<std::size_t>(m_OperationAt(key))];
        const std::size_t mark = key.find('#');
        if (mark == std::string::npos)
            return faults.always;
        const std::string number = key.substr(mark + 1);
        const auto call = ParseNumber<unsigned>(number);
        if (!call || *call == 0 || std::to_string(*call) != number)
            m_FailKey(key, "the number of a call is 1 to 4294967295");
        return faults.byCall[*call];
    }

    void m_ReadValue(const std::string& key, std::int32_t& number)
    {
        const auto parsed = ParseNumber<std::int32_t>(m_Raw(key));
        if (!parsed)
            m_FailValue(key, "not a number of 32 bits");
        number = *parsed;
    }

    void m_ReadValue(const std::string& key, std::optional<std::uint64_t>& number)
    {
        number = ParseNumber<std::uint64_t>(m_Raw(key));
        if (!number)
            m_FailValue(key, "not a number of 64 bits");
    }

    void m_ReadValue(const std::string& key, bool& flag)
    {
        const std::string value = m_Raw(key);
        if (value != "true" && value != "false")
            m_FailValue(key, "neither true nor false");
        flag = value == "true";
    }

    // The value without the blanks around it.
    std::string m_Raw(const std::string& key)
    {
        g_autofree char* value = g_key_file_get_value(m_file.get(), m_group.c_str(), key.c_str(), nullptr);
        return value == nullptr ? "" : Stripped(value);
    }

    std::string m_Text(const std::string& key)
    {
        g_autoptr(GError) error = nullptr;
        g_autofree char* value = g_key_file_get_string(m_file.get(), m_group.c_str(), key.c_str(), &error);
        if (value == nullptr || error != nullptr)
            m_FailValue(key, "not a text in UTF-8, or a wrong escape");
        return value;
    }

    [[noreturn]] void m_FailValue(const std::string& key, const std::string& reason)
    {
        const std::string value = m_Raw(key);
        const bool comment = value.find('#') != std::string::npos;
        m_FailKey(key, reason + ": " + Shortened(value) + (comment ? " (a comment needs a line of its own)" : ""));
    }

    [[noreturn]] void m_FailKey(const std::string& key, const std::string& reason) const
    {
        m_Fail("[" + Shortened(m_group) + "] " + Shortened(key) + ": " + reason);
    }

    [[noreturn]] void m_Fail(const std::string& reason) const
    {
        throw std::runtime_error("scenario " + m_path + ": " + reason);
    }

    std::string m_path;
    std::map<std::string, std::map<std::string, Field>> m_fields; // by group and key
    std::map<std::string, KeyReader> m_readers = {
        {"vconf", &Reader::m_ReadVconf}, {"result", &Reader::m_ReadResult}, {"throw", &Reader::m_ReadThrow},
        {"delay", &Reader::m_ReadDelay}, {"signal", &Reader::m_ReadSignal}, {kService, &Reader::m_ReadService},
    };
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> m_file{g_key_file_new(), g_key_file_free};
    std::string m_group;
    Scenario m_scenario;
};

} // namespace

Scenario ParseScenario(const std::string& path, const std::string& text) { return Reader(path).Read(text); }

} // namespace host
