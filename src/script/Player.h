// Plays a checked script.
#pragma once

#include "script/Script.h"
#include "script/Session.h"

#include <deque>
#include <string>
#include <vector>

namespace script
{

/// Awaits the lines of a script one after the other and types their words.
class Player : private Session
{
public:
    /// `limit` is the timeout of each line. With `tap`, prints a line in TAP for each step.
    Player(std::string name, std::vector<Line> lines, std::chrono::milliseconds limit, bool tap);

    /// Returns true if every line was met and the command ended with 0; otherwise prints an error to standard error.
    /// Throws std::runtime_error if the command cannot be started.
    bool Play(const std::vector<std::string>& command);

private:
    void m_OnStart() override { m_AwaitNext(); }
    void m_OnLine(const PrintedLine& line) override;
    void m_OnPrompt(const std::string& prompt, bool forLong) override;
    void m_OnEnd() override;
    void m_Met();
    void m_AwaitNext();
    void m_Fail(const std::string& where);
    void m_Report(bool passed, const std::string& step);

    const std::string m_name;
    const std::vector<Line> m_lines;
    const bool m_tap;
    std::size_t m_next = 0;
    std::size_t m_reported = 0;
    bool m_failed = false;
    Timer m_waiting;
    std::string m_prompt;              // the tool waits at it
    std::deque<std::string> m_printed; // the newest lines since the last word
    std::size_t m_dropped = 0;         // number of the older lines since the last word
};

} // namespace script
