// Records a session as a checked script.
#pragma once

#include "script/Session.h"

#include <fstream>
#include <string>
#include <vector>

namespace script
{

/// Passes a session through standard input and output and writes its prompts, words and printed lines.
class Recorder : private Session
{
public:
    /// Empties the file. A word that does not come from a terminal waits for its prompt for at most that time. Throws
    /// std::runtime_error.
    Recorder(std::string path, std::chrono::milliseconds limit);

    /// Returns whether the session was written whole and the command ended with 0. What went wrong is printed to
    /// standard error. Throws std::runtime_error if the command cannot be started.
    bool Record(const std::vector<std::string>& command);

private:
    void m_OnOutput(std::string_view output) override;
    void m_OnLine(const PrintedLine& line) override;
    void m_OnPrompt(const std::string& prompt, bool forLong) override;
    void m_OnEnd() override;
    static gboolean OnTyped(int input, GIOCondition, gpointer recorder);
    void m_AwaitTyping();
    void m_Pass();
    void m_PassWord(const std::string& word);
    void m_Write(const std::string& lines);
    void m_Fail(const std::string& reason);

    const std::string m_path;
    std::ofstream m_file;
    Timer m_waiting;
    std::string m_typed; // words that wait for their prompts, and an unfinished one
    bool m_typedAll = false;
    guint m_typing = 0;
    std::string m_prompt; // at which the tool waits
    bool m_forLong = false;
    gint64 m_promptTime = 0; // since when it has waited for a word
    std::string m_lines;     // printed since the last prompt settled
    bool m_failed = false;
};

} // namespace script
