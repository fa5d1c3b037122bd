#include "script/Recorder.h"

#include "script/Script.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <glib-unix.h>
#include <iostream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace script
{
namespace
{

// A signal that is printed later than that after a prompt is printed after the prompt in every session.
constexpr gint64 kLateTime = G_USEC_PER_SEC / 5;

constexpr std::size_t kMaxPending = 1U << 20; // a command that prints without end must not fill the memory

} // namespace

Recorder::Recorder(std::string path, std::chrono::milliseconds limit)
    : Session(limit), m_path(std::move(path)), m_file(m_path, std::ios::binary)
{
    if (!m_file)
        throw std::runtime_error("cannot write " + m_path + ": " + std::strerror(errno));
}

bool Recorder::Record(const std::vector<std::string>& command)
{
    m_Run(command);
    return !m_failed;
}

void Recorder::m_OnOutput(std::string_view output)
{
    m_prompt.clear(); // until the next prompt is recognized
    std::cout << output << std::flush;
}

// In another session a signal may be printed before or after the other lines of its step. It is written as a comment,
// which the engineer can turn into a line. A signal that is printed while the tool waits at a prompt becomes a line:
// the engineer may have waited for it.
void Recorder::m_OnLine(const PrintedLine& line)
{
    const std::string& text = line.isSignal ? line.late : line.whole;
    if (text.empty() || !m_InputIsOpen())
        return; // a script closes the input after its last line, so it cannot await later output
    const bool isLate = m_promptTime != 0 && g_get_monotonic_time() - m_promptTime > kLateTime;
    m_lines += line.isSignal && !isLate ? "# " + text : LineFor(text, !line.isSignal && !line.late.empty());
    m_lines += '\n';
    if (m_lines.size() > kMaxPending)
        m_Write(std::exchange(m_lines, ""));
}

void Recorder::m_OnPrompt(const std::string& prompt, bool forLong)
{
    m_prompt = prompt;
    m_forLong = forLong;
    if (m_promptTime == 0)
        m_promptTime = g_get_monotonic_time();
    m_Write(std::exchange(m_lines, ""));
    m_Pass();
}

void Recorder::m_OnEnd()
{
    m_Write(m_lines);
    if (!m_file)
        m_Fail("cannot write all of it");
    if (!m_EndedWell())
        m_Fail(m_Ending());
}

void Recorder::m_AwaitTyping()
{
    if (m_typing == 0)
        m_typing = g_unix_fd_add(STDIN_FILENO, GIOCondition(G_IO_IN | G_IO_HUP), OnTyped, this);
}

gboolean Recorder::OnTyped(int input, GIOCondition, gpointer recorder)
{
    auto* const self = static_cast<Recorder*>(recorder);
    std::array<char, 4096> buffer;
    const ssize_t count = read(input, buffer.data(), buffer.size());
    self->m_typing = 0;
    self->m_typedAll = count <= 0;
    if (count > 0)
        self->m_typed.append(buffer.data(), static_cast<std::size_t>(count));
    else
        self->m_typed += '\n'; // ends the last word
    self->m_Pass();
    return G_SOURCE_REMOVE;
}

// Each word, and the end of the input, waits for its own prompt, so that the played script finds the same prompts.
void Recorder::m_Pass()
{
    m_waiting.Stop();
    m_typed.erase(0, m_typed.find_first_not_of(kBlanks));
    const std::string word = m_typed.substr(0, m_typed.find_first_of(kBlanks));
    const bool isWord = word.size() < m_typed.size();
    const bool isPrompt = !m_prompt.empty() && (!isWord || m_forLong || IsCertain(m_prompt, word));
    if (!isWord && !m_typedAll) {
        m_AwaitTyping();
    } else if (m_InputIsOpen() && !isPrompt) {
        if (m_typedAll || isatty(STDIN_FILENO) == 0)
            m_waiting.Start(m_Limit(), [this, word] {
                if (!word.empty())
                    m_Fail("no prompt for the word " + word);
                m_CloseInput();
            });
    } else if (m_InputIsOpen() && isWord) {
        m_PassWord(word);
        m_Pass();
    } else {
        m_CloseInput();
    }
}

void Recorder::m_PassWord(const std::string& word)
{
    const std::string prompt = std::exchange(m_prompt, "");
    m_promptTime = 0;
    m_typed.erase(0, word.size());
    if (g_utf8_validate(word.data(), static_cast<gssize>(word.size()), nullptr) == FALSE) {
        m_Fail("a word is not UTF-8 text");
        m_CloseInput();
    } else if (m_Type(word)) {
        m_Write(prompt + word + "\n");
    } else if (word.size() >= PIPE_BUF) {
        m_Fail("the word " + word.substr(0, 20) + "... is too long");
        m_CloseInput();
    }
}

void Recorder::m_Write(const std::string& lines) { m_file << lines << std::flush; }

void Recorder::m_Fail(const std::string& reason)
{
    m_failed = true;
    std::cerr << m_path + ": " + reason + "\n";
}

} // namespace script
