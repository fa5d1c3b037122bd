// A checked script: the lines that are awaited from a console, one after the other.
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
    /// Whether the line awaits this printed line, which has no line end and is UTF-8.
    bool Matches(const std::string& printed) const;

    int Number() const { return m_number; }
    const std::string& Text() const { return m_text; }

private:
    int m_number;
    std::string m_text;
    std::optional<std::string> m_glob;
    std::shared_ptr<GRegex> m_regex;
};

/// The lines that the text has; `name` is the file's name in errors. Throws std::runtime_error.
std::vector<Line> ParseScript(const std::string& name, const std::string& text);

/// Reads and parses a script of at most 64 MiB. Throws std::runtime_error.
std::vector<Line> ReadScript(const std::string& path);

/// Whether the text is certain to be a prompt for that word. If not, it may be the first piece of a longer text.
bool IsCertain(const std::string& prompt, const std::string& word);

/// A line of a script that awaits this printed line and is never taken for a comment, a pattern or a prompt. It is the
/// printed line itself where that is possible, and a pattern if not.
std::string LineFor(const std::string& printed, bool likePrompt);

} // namespace script
