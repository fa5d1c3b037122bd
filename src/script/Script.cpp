#include "script/Script.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <gio/gio.h>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace script
{
namespace
{

constexpr std::size_t kMaxScript = 64U << 20;
constexpr std::string_view kRegex = " (re)", kGlob = " (glob)", kByteOrderMark = "\xEF\xBB\xBF";

bool StartsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

bool EndsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::shared_ptr<GRegex> Compile(const std::string& pattern)
{
    constexpr auto flags = static_cast<GRegexCompileFlags>(G_REGEX_ANCHORED | G_REGEX_NEWLINE_LF);
    g_autoptr(GError) error = nullptr;
    std::shared_ptr<GRegex> regex(g_regex_new(pattern.c_str(), flags, GRegexMatchFlags(0), &error),
                                  [](GRegex* made) { made != nullptr ? g_regex_unref(made) : void(); });
    if (error != nullptr)
        throw std::runtime_error(error->message);
    return regex;
}

// `*` matches any text, `?` any character. A backslash before `*`, `?` or a backslash makes it an ordinary character.
bool GlobMatches(const char* pattern, const char* text)
{
    const char *afterStar = nullptr, *resume = nullptr;
    while (*text != '\0') {
        const bool escaped = *pattern == '\\' && pattern[1] != '\0' && std::strchr("*?\\", pattern[1]) != nullptr;
        if (*pattern == '*') {
            afterStar = ++pattern;
            resume = text;
        } else if (*pattern == '?') {
            ++pattern;
            text = g_utf8_next_char(text);
        } else if (pattern[escaped ? 1 : 0] == *text) {
            pattern += escaped ? 2 : 1;
            ++text;
        } else if (afterStar != nullptr) {
            pattern = afterStar; // the star matches one more character
            text = resume = g_utf8_next_char(resume);
        } else {
            return false;
        }
    }
    return pattern[std::strspn(pattern, "*")] == '\0';
}

} // namespace

Line::Line(int number, std::string text) : m_number(number), m_text(std::move(text))
{
    if (g_utf8_validate(m_text.data(), static_cast<gssize>(m_text.size()), nullptr) == FALSE)
        throw std::runtime_error("the line is not UTF-8 text");
    if (EndsWith(m_text, kGlob)) {
        m_glob = m_text.substr(0, m_text.size() - kGlob.size());
    } else if (EndsWith(m_text, kRegex)) {
        const std::string pattern = m_text.substr(0, m_text.size() - kRegex.size());
        Compile(pattern); // first without the additions, so that an error has the right position
        // Without the limit some patterns take minutes.
        m_regex = Compile("(*LIMIT_MATCH=100000)(?:" + pattern + ")\\z");
    }
}

std::optional<std::string> Line::WordAt(const std::string& prompt) const
{
    if (prompt.empty() || !StartsWith(m_text, prompt))
        return std::nullopt;
    std::string word = m_text.substr(prompt.size());
    if (word.empty() || word.find_first_of(kBlanks) != std::string::npos)
        return std::nullopt;
    return word;
}

bool Line::Matches(const std::string& printed) const
{
    return m_text == printed || (m_glob && GlobMatches(m_glob->c_str(), printed.c_str())) ||
           (m_regex != nullptr && g_regex_match(m_regex.get(), printed.c_str(), GRegexMatchFlags(0), nullptr) != FALSE);
}

std::vector<Line> ParseScript(const std::string& name, const std::string& text)
{
    std::vector<Line> lines;
    int number = 0;
    std::istringstream stream(StartsWith(text, kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text);
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (EndsWith(line, "\r"))
            line.pop_back();
        if (line.empty() || line[0] == '#')
            continue;
        try {
            lines.emplace_back(number, line);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(name + ":" + std::to_string(number) + ": " + error.what());
        }
    }
    return lines;
}

std::vector<Line> ReadScript(const std::string& path)
{
    const auto release = [](gpointer object) { object != nullptr ? g_object_unref(object) : void(); };
    const std::unique_ptr<GFile, decltype(release)> file(g_file_new_for_path(path.c_str()), release);
    g_autoptr(GError) error = nullptr;
    const std::unique_ptr<GFileInputStream, decltype(release)> stream(g_file_read(file.get(), nullptr, &error),
                                                                      release);
    std::string text;
    while (error == nullptr && text.size() <= kMaxScript) { // a device may have no end
        char buffer[1 << 16];
        const gssize count = g_input_stream_read(G_INPUT_STREAM(stream.get()), buffer, sizeof buffer, nullptr, &error);
        if (count <= 0)
            break;
        text.append(buffer, static_cast<std::size_t>(count));
    }
    if (error != nullptr)
        throw std::runtime_error("cannot read " + path + ": " + error->message);
    if (text.size() > kMaxScript)
        throw std::runtime_error("cannot read " + path + ": larger than 64 MiB");
    return ParseScript(path, text);
}

// Half a prompt must not be taken for the whole one. With half of "cmd> ", the word of the line "cmd> 5" would be " 5",
// which is not a word. With "Input ? ", the half of "Input ? >", it would be ">13": so a word like that is not certain.
bool IsCertain(const std::string& prompt, const std::string& word)
{
    return std::isalnum(static_cast<unsigned char>(prompt.back())) == 0 &&
           std::all_of(word.begin(), word.end(), [](unsigned char byte) {
               return std::isalnum(byte) != 0 || std::strchr("+-._", byte) != nullptr;
           });
}

std::string LineFor(const std::string& printed, bool likePrompt)
{
    if (!likePrompt && !StartsWith(printed, "#") && !StartsWith(printed, kByteOrderMark) && !EndsWith(printed, kGlob) &&
        !EndsWith(printed, kRegex) && !EndsWith(printed, "\r"))
        return printed;
    std::string pattern;
    for (const char byte : printed) {
        if (std::strchr("*?\\", byte) != nullptr)
            pattern += '\\';
        pattern += byte;
    }
    if (StartsWith(pattern, "#"))
        pattern[0] = '?';
    else if (StartsWith(pattern, kByteOrderMark))
        pattern.replace(0, kByteOrderMark.size(), "?");
    return pattern + std::string(kGlob);
}

} // namespace script
