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
    std::string late;  ///< what came after the prompt that stood at its start, or empty
    bool isSignal;     ///< whether `late`, or the whole line, is the line of a signal
};

/// Divides the output into lines and prompts. Other threads of the tool print signals at any time, also while the
/// console thread waits at a prompt: the prompt still stands then, although it is no longer the last text.
class Screen
{
public:
    /// Adds output and calls `onLine` for each line that is complete.
    void Add(std::string_view output, const std::function<void(const PrintedLine&)>& onLine);
    /// Adds the line end that the last line of an output may lack.
    void Finish(const std::function<void(const PrintedLine&)>& onLine);
    /// The prompt, once no output has come for a moment; empty if the tool does not wait at one.
    std::string Settle();
    /// The prompt has been answered; what comes begins a line, as at a terminal, which shows the word and its line end.
    void Answered();

private:
    PrintedLine m_TakeLine();
    std::string m_rest;   // the line that has no end yet
    std::string m_prompt; // the rest that has settled and has had no answer
};

} // namespace script
