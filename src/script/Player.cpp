#include "script/Player.h"

#include <iostream>
#include <utility>

namespace script
{
namespace
{

constexpr std::size_t kMaxPrinted = 200; // lines of output in a report, about ten menus

} // namespace

Player::Player(std::string name, std::vector<Line> lines, std::chrono::milliseconds limit, bool tap)
    : Session(limit), m_name(std::move(name)), m_lines(std::move(lines)), m_tap(tap)
{
}

bool Player::Play(const std::vector<std::string>& command)
{
    m_Run(command);
    return !m_failed;
}

void Player::m_AwaitNext()
{
    if (m_next == m_lines.size()) {
        m_waiting.Stop();
        m_CloseInput();
        return;
    }
    m_waiting.Start(m_Limit(), [this] {
        if (!m_InputIsOpen())
            return; // after a termination signal
        m_Fail(m_prompt.empty() ? "the tool is at no prompt" : "the tool is at the prompt " + m_prompt);
        m_CloseInput();
    });
}

void Player::m_OnLine(const PrintedLine& line)
{
    m_printed.push_back(line.whole);
    if (m_printed.size() > kMaxPrinted) {
        m_printed.pop_front();
        ++m_dropped;
    }
    const Line* const next = m_InputIsOpen() ? &m_lines[m_next] : nullptr;
    if (next != nullptr && (next->Matches(line.whole) || (!line.late.empty() && next->Matches(line.late))))
        m_Met();
}

void Player::m_OnPrompt(const std::string& prompt, bool forLong)
{
    m_prompt = prompt;
    const auto word = m_lines[m_next].WordAt(prompt);
    if (!word || !(forLong || IsCertain(prompt, *word)) || !m_Type(*word))
        return;
    m_prompt.clear();
    m_printed.clear();
    m_dropped = 0;
    m_Met();
}

void Player::m_OnEnd()
{
    if (m_next < m_lines.size()) {
        if (!m_failed)
            m_Fail(m_Ending());
        return;
    }
    m_Report(m_EndedWell(), "the command ends with status 0");
    if (!m_EndedWell()) {
        m_failed = true;
        std::cerr << m_name + ": " + m_Ending() + "\n";
    }
}

void Player::m_Met()
{
    m_Report(true, m_lines[m_next++].Text());
    m_AwaitNext();
}

void Player::m_Fail(const std::string& where)
{
    m_failed = true;
    const Line& line = m_lines[m_next];
    m_Report(false, line.Text());
    const std::string place = m_name + ":" + std::to_string(line.Number()) + ": ";
    std::string report = place + "expected " + line.Text() + "\n" + place + where + "\n" + place +
                         "printed since the last word:" + (m_printed.empty() ? " nothing" : "") + "\n";
    if (m_dropped > 0)
        report += "  (" + std::to_string(m_dropped) + " lines before these)\n";
    for (const std::string& printed : m_printed)
        report += "  " + printed + "\n";
    std::cerr << report << std::flush;
}

void Player::m_Report(bool passed, const std::string& step)
{
    if (!m_tap)
        return;
    std::string text;
    if (m_reported == 0)
        text = "1.." + std::to_string(m_lines.size() + 1) + "\n";
    text += (passed ? "ok " : "not ok ") + std::to_string(++m_reported) + " - ";
    for (const char byte : step) // in TAP, a '#' starts a directive
        text += byte == '#' ? "\\#" : std::string(1, byte);
    std::cout << text + "\n" << std::flush;
}

} // namespace script
