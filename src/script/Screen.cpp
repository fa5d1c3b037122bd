#include "script/Screen.h"

#include <algorithm>
#include <glib.h>
#include <memory>

namespace script
{
namespace
{

// How the lines of signals begin, in the TVS debug menu and in the TPMS test menu.
constexpr std::string_view kSignals[] = {"[DebugUtil] SignalReceivedCallback - signal:", "\tSIGNAL_"};
constexpr std::size_t kMaxLine = 1U << 20; // a longer line is divided there, so that it does not fill the memory

std::string Valid(const std::string& bytes)
{
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())), g_free);
    return text.get();
}

} // namespace

void Screen::Add(std::string_view output, const std::function<void(const PrintedLine&)>& onLine)
{
    while (!output.empty()) {
        const std::size_t part = std::min({output.find('\n'), output.size(), kMaxLine - m_rest.size()});
        m_rest += output.substr(0, part);
        output.remove_prefix(part);
        if (output.empty())
            return;
        if (output.front() == '\n')
            output.remove_prefix(1);
        onLine(m_TakeLine());
    }
}

void Screen::Finish(const std::function<void(const PrintedLine&)>& onLine)
{
    if (!m_rest.empty())
        onLine(m_TakeLine());
}

std::string Screen::Settle()
{
    if (!m_rest.empty())
        m_prompt = m_rest;
    return Valid(m_prompt);
}

void Screen::Answered()
{
    m_rest.clear();
    m_prompt.clear();
}

PrintedLine Screen::m_TakeLine()
{
    std::string line;
    std::swap(line, m_rest);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    std::size_t signal = std::string::npos;
    for (const std::string_view start : kSignals)
        signal = std::min(signal, line.find(start));
    const bool isSignal = signal != std::string::npos;
    std::string late;
    if (isSignal) {
        late = line.substr(signal);
        m_rest = line.substr(0, signal); // goes on after the signal's line
    } else if (!m_prompt.empty() && line.compare(0, m_prompt.size(), m_prompt) == 0) {
        late = line.substr(m_prompt.size());
    }
    return {Valid(line), Valid(late), isSignal};
}

} // namespace script
