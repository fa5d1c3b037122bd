#include "host/call/Scenario.h"

#include "host/call/ScenarioGroups.h"
#include "host/call/Text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unordered_set>

namespace host
{
namespace
{

constexpr std::size_t kMaxFileSize = 64U << 20;

struct Freer {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
    void operator()(GError* error) const { g_error_free(error); }
};

[[noreturn]] void Fail(const std::string& path, const std::string& reason)
{
    throw std::runtime_error("scenario " + path + ": " + reason);
}

// Refuses lines that are nothing, and groups and keys that stand twice: the key file's parser would merge them, and a
// service that is lost that way is better reported.
void CheckLines(const std::string& path, const std::string& text)
{
    std::unordered_set<std::string> groups, keys;
    std::string group;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = Stripped(line);
        if (line.empty() || line[0] == '#')
            continue;
        const bool isGroup = line[0] == '[';
        if (!isGroup && line.find('=') == std::string::npos)
            Fail(path, "neither a group, a key nor a comment: " + Shortened(line));
        const std::string name =
            isGroup ? line.substr(1, line.rfind(']') - 1) : Stripped(line.substr(0, line.find('=')));
        if (isGroup) {
            group = name;
            keys.clear();
        }
        if (!(isGroup ? groups : keys).insert(name).second)
            Fail(path, "[" + Shortened(group) + (isGroup ? "]" : "] " + Shortened(name)) + ": stands twice");
    }
}

} // namespace

Fault Scenario::FaultOf(Op operation, unsigned call) const
{
    const Faults& all = faults[static_cast<std::size_t>(operation)];
    const auto found = all.byCall.find(call);
    if (found == all.byCall.end())
        return all.always;
    Fault fault = found->second;
    if (!fault.delay)
        fault.delay = all.always.delay;
    if (!fault.result && !fault.thrown) {
        fault.result = all.always.result;
        fault.object = all.always.object;
        fault.thrown = all.always.thrown;
    }
    return fault;
}

Scenario ParseScenario(const std::string& path, const std::string& text)
{
    if (text.size() > kMaxFileSize)
        Fail(path, "larger than 64 MiB");
    if (text.find('\0') != std::string::npos)
        Fail(path, "holds a zero byte");
    CheckLines(path, text);
    const std::unique_ptr<GKeyFile, Freer> file(g_key_file_new());
    GError* raised = nullptr;
    const bool loaded = g_key_file_load_from_data(file.get(), text.c_str(), text.size(), G_KEY_FILE_KEEP_TRANSLATIONS,
                                                  &raised) != FALSE;
    const std::unique_ptr<GError, Freer> error(raised);
    if (!loaded)
        Fail(path, Shortened(error->message));
    return ReadGroups(path, file.get());
}

Scenario LoadScenario(const std::string& path)
{
    // Looked at before it is opened: a pipe that nobody writes would keep us waiting, a file without end fill the memory.
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        Fail(path, std::strerror(errno));
    if (!S_ISREG(status.st_mode))
        Fail(path, "not a regular file");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "re"), std::fclose);
    if (!file)
        Fail(path, std::strerror(errno));
    std::string text; // a file may hold more than it says
    for (char block[1 << 16]; text.size() <= kMaxFileSize;) {
        const std::size_t count = std::fread(block, 1, sizeof block, file.get());
        text.append(block, count);
        if (std::ferror(file.get()) != 0)
            Fail(path, std::strerror(errno));
        if (count == 0)
            break;
    }
    return ParseScenario(path, text);
}

Scenario BuiltInScenario() { return ParseScenario("(built in)", kBuiltInScenario); }

} // namespace host
