#include "host/call/Trace.h"

#include "host/call/StandardStreams.h"
#include "host/call/Text.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace host
{
namespace
{

// Joins the elements with the separator, between the two brackets.
template <class List, class Shower>
std::string ShowAll(const List& list, const char* separator, const char* brackets, Shower show)
{
    std::string text(1, brackets[0]);
    const char* before = "";
    for (const auto& element : list) {
        text += before + show(element);
        before = separator;
    }
    return text + brackets[1];
}

std::string ShowStep(const TCCriteriaHelper::Step& step)
{
    using Step = TCCriteriaHelper::Step;
    const std::string field = std::to_string(step.field), value = std::to_string(step.value);
    if (step.kind == Step::NAVIGATION)
        return "navigation " + field + " " + value;
    if (step.kind == Step::FETCH)
        return "fetch " + field;
    return (step.kind == Step::WHERE ? "where " : "where not ") + field + "=" + value;
}

} // namespace

std::string Show(bool value) { return value ? "true" : "false"; }
std::string Show(std::string_view text) { return '"' + OneLine(text, /*asLiteral=*/true) + '"'; }

std::string Show(const TSTvMode& mode)
{
    return ShowAll(std::vector<int>{mode.antennaMode, mode.serviceMode}, ", ", "{}", Show<int>);
}

std::string Show(const TSRectInfo& r)
{
    return ShowAll(std::vector<int>{r.x, r.y, r.width, r.height}, ", ", "{}", Show<int>);
}

std::string Show(const TCCriteriaHelper& criteria) { return ShowAll(criteria.GetSteps(), "; ", "{}", ShowStep); }

std::string Show(const TServiceList& services)
{
    return ShowAll(services, ", ", "[]",
                   [](const auto& service) { return Show(service.first) + ":" + Show(service.second); });
}

std::string Show(const std::vector<int>& ids) { return ShowAll(ids, ", ", "[]", Show<int>); }

Trace::~Trace()
{
    if (m_descriptor > STDERR_FILENO)
        close(m_descriptor);
}

void Trace::Open(const std::string& path)
{
    // O_NONBLOCK: a pipe without a reader is an error; otherwise open would wait for one.
    m_path = path;
    m_descriptor = path == "-"
                       ? STDERR_FILENO
                       : open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    if (m_descriptor < 0)
        throw std::runtime_error("trace " + path + ": " + std::strerror(errno));
    if (m_descriptor != STDERR_FILENO)
        fcntl(m_descriptor, F_SETFL, O_APPEND);
}

void Trace::Write(std::string line)
{
    line += '\n';
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::size_t done = 0; done < line.size() && !m_ended;) {
        const ssize_t written = write(m_descriptor, line.data() + done, line.size() - done);
        if (written >= 0)
            done += static_cast<std::size_t>(written);
        else if (errno != EINTR)
            m_End(done);
    }
}

// On a full disk the partly written line is removed and tracing ends; the session goes on.
void Trace::m_End(std::size_t written)
{
    const std::string reason = std::strerror(errno);
    m_ended = true;
    struct stat file = {};
    if (fstat(m_descriptor, &file) == 0 && S_ISREG(file.st_mode))
        (void)!ftruncate(m_descriptor, file.st_size - static_cast<off_t>(written));
    PrintError(OneLine("trace " + m_path + ": " + reason));
}

} // namespace host
