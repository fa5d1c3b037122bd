#include "host/call/Scenario.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <glib.h>
#include <limits>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unordered_set>

namespace host
{
namespace
{

// Six services over air, cable and satellite, one of them a VC channel (type 9) and one without a programme.
constexpr const char* kBuiltIn = R"([vconf]
db/tv-viewer/window_id=77

[latest]
rf_cable=8193
rf_air=4097
veluna_cable=8194
veluna_air=4098

[service air 5]
1=2
3=0
4=506000
12=4096
13=5
14=1
23=1
25=0
title=Evening News

[service air 7]
1=2
3=0
4=514000
12=4097
13=7
14=1
23=1
25=0
title=Gardens of the North

[service air vc 9]
1=9
3=0
4=522000
12=4098
13=9
14=0
23=1
25=0
115=0
title=City Channel

[service cable 21]
1=4
3=0
4=602000
12=8193
13=21
14=1
23=1
25=0
title=Match of the Week

[service cable 22]
1=4
3=0
4=610000
12=8194
13=22
14=1
23=1
25=0

[service satellite 101]
1=6
3=0
4=11720000
12=12289
13=101
14=1
23=1
25=0
title=Späte Lieder
)";

template <class Number> std::optional<Number> ParseNumber(const std::string& text)
{
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || text.empty())
        return std::nullopt;
    return number;
}

std::string Stripped(const std::string& text)
{
    constexpr const char* blanks = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct Freer {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
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
            {"result", &Reader::ReadResult}, {"throw", &Reader::ReadThrow},
        };
        m_group = group;
        KeyReader reader = &Reader::ReadService;
        if (group.rfind("service", 0) == 0) {
            m_scenario.services.emplace_back();
        } else {
            const auto found = readers.find(group);
            if (found == readers.end())
                throw std::runtime_error("scenario " + m_path + ": [" + group + "]: unknown group");
            reader = found->second;
        }
        gsize count = 0;
        const Owned<char*> keys(g_key_file_get_keys(m_file, group.c_str(), &count, nullptr));
        for (gsize i = 0; i < count; ++i)
            (this->*reader)(keys.get()[i]);
    }

    void ReadTv(const std::string& key)
    {
        if (key == "antenna_mode")
            m_scenario.antennaMode = Number<std::int32_t>(key);
        else if (key == "service_mode")
            m_scenario.serviceMode = Number<std::int32_t>(key);
        else if (key == "caption_exist")
            m_scenario.captionExist = Bool(key);
        else if (key == "pid_set_status")
            m_scenario.pidSetStatus = Bool(key);
        else if (key == "zoom_available")
            m_scenario.zoomAvailable = Bool(key);
        else if (key == "zoom_sharing_type")
            m_scenario.zoomSharingType = Number<std::int32_t>(key);
        else
            Fail(key, "unknown key");
    }

    void ReadVconf(const std::string& key) { m_scenario.vconf[key] = Number<std::int32_t>(key); }

    void ReadLatest(const std::string& key)
    {
        if (key == "rf_cable")
            m_scenario.latestRFCable = Number<std::uint64_t>(key);
        else if (key == "rf_air")
            m_scenario.latestRFAir = Number<std::uint64_t>(key);
        else if (key == "veluna_cable")
            m_scenario.latestVelunaCable = Number<std::uint64_t>(key);
        else if (key == "veluna_air")
            m_scenario.latestVelunaAir = Number<std::uint64_t>(key);
        else
            Fail(key, "unknown key");
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
            Fail(key, "unknown key");
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
            Fail(key, "not a number of 32 bits");
        return static_cast<std::uint32_t>(*value);
    }

    void ReadResult(const std::string& key)
    {
        const Op operation = Operation(key);
        Fault& fault = FaultOf(operation);
        std::string value = Raw(key);
        const std::size_t blank = value.find_last_of(" \t");
        if (blank != std::string::npos && value.substr(blank + 1) == "object") {
            if (!IsFactory(operation))
                Fail(key, "only a factory makes an object");
            fault.object = true;
            value.resize(value.find_last_not_of(" \t", blank) + 1);
        }
        fault.result = ParseNumber<std::int32_t>(value);
        if (!fault.result)
            Fail(key, "not a number of 32 bits");
    }

    void ReadThrow(const std::string& key) { FaultOf(Operation(key)).thrown = Text(key); }

    Op Operation(const std::string& key)
    {
        const auto operation = OperationNamed(key);
        if (!operation)
            Fail(key, "unknown operation");
        return *operation;
    }

    Fault& FaultOf(Op operation) { return m_scenario.faults[static_cast<std::size_t>(operation)]; }

    template <class T> T Number(const std::string& key)
    {
        const auto number = ParseNumber<T>(Raw(key));
        if (!number)
            Fail(key, sizeof(T) == sizeof(std::int32_t) ? "not a number of 32 bits" : "not a number of 64 bits");
        return *number;
    }

    bool Bool(const std::string& key)
    {
        const std::string value = Raw(key);
        if (value != "true" && value != "false")
            Fail(key, "neither true nor false");
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
            Fail(key, "not a text in UTF-8, or a wrong escape");
        return value.get();
    }

    [[noreturn]] void Fail(const std::string& key, const std::string& reason) const
    {
        throw std::runtime_error("scenario " + m_path + ": [" + m_group + "] " + key + ": " + reason);
    }

    std::string m_path;
    GKeyFile* m_file;
    std::string m_group;
    Scenario m_scenario;
};

// GLib merges groups and keys that stand twice; a service that is lost that way is better reported.
void RefuseRepetitions(const std::string& path, const std::string& text)
{
    std::unordered_set<std::string> groups, keys;
    std::string group;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = Stripped(line);
        if (line.empty() || line[0] == '#')
            continue;
        const bool isGroup = line[0] == '[';
        const std::string name =
            isGroup ? line.substr(1, line.rfind(']') - 1) : Stripped(line.substr(0, line.find('=')));
        if (isGroup) {
            group = name;
            keys.clear();
        }
        if (!(isGroup ? groups : keys).insert(name).second)
            throw std::runtime_error("scenario " + path + ": [" + group + (isGroup ? "]" : "] " + name) +
                                     ": stands twice");
    }
}

} // namespace

Scenario ParseScenario(const std::string& path, const std::string& text)
{
    const Owned<GKeyFile> file(g_key_file_new());
    GError* raised = nullptr;
    const bool loaded = g_key_file_load_from_data(file.get(), text.c_str(), text.size(), G_KEY_FILE_KEEP_TRANSLATIONS,
                                                  &raised) != FALSE;
    const Owned<GError> error(raised);
    if (!loaded)
        throw std::runtime_error("scenario " + path + ": " + error->message);
    RefuseRepetitions(path, text);
    return Reader(path, file.get()).Read();
}

Scenario LoadScenario(const std::string& path)
{
    // Looked at before it is opened: a pipe that nobody writes would keep us waiting.
    struct stat status = {};
    const bool found = stat(path.c_str(), &status) == 0;
    std::ifstream file;
    if (found && S_ISREG(status.st_mode))
        file.open(path);
    if (!file.is_open())
        throw std::runtime_error("scenario " + path + ": " +
                                 (found && !S_ISREG(status.st_mode) ? "not a regular file" : std::strerror(errno)));
    std::ostringstream text;
    text << file.rdbuf();
    return ParseScenario(path, text.str());
}

Scenario BuiltInScenario() { return ParseScenario("(built in)", kBuiltIn); }

} // namespace host
