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
    /// Empties the file. `limit` is how long a word that is not typed at a terminal waits for its prompt. Throws
    /// std::runtime_error.
    Recorder(std::string path, std::chrono::milliseconds limit);

    /// Returns true if the whole session was written and the command ended with 0; otherwise prints an error to
    /// standard error. Throws std::runtime_error if the command cannot be started.
    bool Record(const std::vector<std::string>& command);

private:
    void m_OnStart() override { m_AwaitTyping(); }
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
    std::string m_prompt; // the tool waits at it
    bool m_forLong = false;
    gint64 m_promptTime = 0; // when it was printed; 0 for none
    std::string m_lines;     // printed since the last prompt
    bool m_failed = false;
};

} // namespace script
