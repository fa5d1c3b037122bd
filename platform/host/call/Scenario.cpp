#include "host/call/Scenario.h"

#include <cerrno>
#include <cstring>
#include <glib.h>
#include <stdexcept>
#include <sys/stat.h>

namespace host
{

Fault Scenario::FaultOf(Op operation, unsigned call) const
{
    const Faults& all = faults[static_cast<std::size_t>(operation)];
    const auto found = all.byCall.find(call);
    if (found == all.byCall.end())
        return all.always;
    Fault fault = found->second;
    if (!fault.delay)
        fault.delay = all.always.delay;
    if (fault.result || fault.thrown)
        return fault;
    return {all.always.result, all.always.object, all.always.thrown, fault.delay};
}

Scenario LoadScenario(const std::string& path)
{
    constexpr off_t kMaxFileSize = 64 << 20;
    const auto fail = [&path](const std::string& reason) {
        throw std::runtime_error("scenario " + path + ": " + reason);
    };
    struct stat status = {}; // checked before the file is opened: opening a pipe would wait for its writer
    if (stat(path.c_str(), &status) != 0)
        fail(std::strerror(errno));
    if (!S_ISREG(status.st_mode))
        fail("not a regular file");
    if (status.st_size > kMaxFileSize)
        fail("larger than 64 MiB");
    g_autofree char* text = nullptr;
    gsize length = 0;
    g_autoptr(GError) error = nullptr;
    if (!g_file_get_contents(path.c_str(), &text, &length, &error))
        fail(error->message);
    return ParseScenario(path, {text, length});
}

Scenario BuiltInScenario() { return ParseScenario("(built in)", kBuiltInScenario); }

} // namespace host
