// What a console has printed: its lines, and the prompt at which it waits.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace script
{

/// A printed line, in UTF-8: other bytes are U+FFFD. A line end and one CR before it are left out.
struct PrintedLine {
    std::string whole; ///< as it is on the screen
    std::string late;  ///< the line of a signal in it, or the part after the prompt at its start; otherwise empty
    bool isSignal;     ///< whether `late` is the line of a signal
};

/// Divides the output into lines and prompts. Other threads of the tool print signals at any time, also while the
/// console thread waits at a prompt: it still waits at that prompt then, although other text has followed.
class Screen
{
public:
    /// Adds output and calls `onLine` for each line that is complete.
    void Add(std::string_view output, const std::function<void(const PrintedLine&)>& onLine);
    /// At the end of the output: calls `onLine` for a last line without a line end.
    void Finish(const std::function<void(const PrintedLine&)>& onLine);
    /// Call it when no output has come for a moment. Returns the prompt, or an empty text if there is none.
    std::string Settle();
    /// Call it when a word has been typed: the next output begins a line, as at a terminal, which shows the line end.
    void Answered();

private:
    PrintedLine m_TakeLine();
    std::string m_rest;   // the last line, which has no line end yet
    std::string m_prompt; // the prompt that waits for a word
};

} // namespace script
