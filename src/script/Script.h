// A checked script: the lines to await from a console, in order.
#pragma once

#include <glib.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace script
{

/// What separates words.
constexpr const char* kBlanks = " \t\n\v\f\r";

/// One line of a script.
class Line
{
public:
    /// Throws std::runtime_error if the line is malformed.
    Line(int number, std::string text);

    /// The word to type if the line is this prompt and one word after it.
    std::optional<std::string> WordAt(const std::string& prompt) const;
    /// Whether the printed line, in UTF-8 and without its line end, meets this line.
    bool Matches(const std::string& printed) const;

    int Number() const { return m_number; }
    const std::string& Text() const { return m_text; }

private:
    int m_number;
    std::string m_text;
    std::optional<std::string> m_glob;
    std::shared_ptr<GRegex> m_regex;
};

/// Parses the text of a script; errors name the file `name`. Throws std::runtime_error for a malformed line.
std::vector<Line> ParseScript(const std::string& name, const std::string& text);

/// Reads and parses a script of at most 64 MiB. Throws std::runtime_error.
std::vector<Line> ReadScript(const std::string& path);

/// Whether `prompt` is certainly a whole prompt for that word. If not, it may be the first part of a longer one.
bool IsCertain(const std::string& prompt, const std::string& word);

/// The line of a script that this printed line meets: the printed line itself, or a pattern if that would be read as a
/// comment, as a pattern or (`likePrompt`) as a prompt.
std::string LineFor(const std::string& printed, bool likePrompt);

} // namespace script
