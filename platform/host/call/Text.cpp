#include "host/call/Text.h"

#include <algorithm>
#include <glib.h>
#include <numeric>
#include <set>
#include <utility>

namespace host
{
namespace
{

// The Levenshtein distance: how many characters must be changed, removed or inserted to get from `a` to `b`.
std::size_t Distance(const std::string& a, const std::string& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char character : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (character == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string OneLine(std::string_view text, bool asLiteral)
{
    std::string line;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n') {
            line += "\\n";
        } else if (byte < 0x20 || byte == 0x7F || (asLiteral && byte > 0x7F)) {
            constexpr const char* digits = "0123456789ABCDEF";
            line += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
        } else {
            if (asLiteral && (character == '"' || character == '\\'))
                line += '\\';
            line += character;
        }
    }
    return line;
}

std::string Stripped(const std::string& text)
{
    constexpr const char* blanks = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string Shortened(const std::string& text)
{
    constexpr glong kMaxCharacters = 80;
    g_autofree char* valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
    if (g_utf8_strlen(valid, -1) <= kMaxCharacters)
        return valid;
    return std::string(valid, g_utf8_offset_to_pointer(valid, kMaxCharacters)) + "...";
}

std::string Suggestion(const std::string& word, const std::vector<std::string>& known)
{
    constexpr std::size_t kFew = 10, kMaxDistance = 3;
    const bool few = known.size() <= kFew;
    std::set<std::pair<std::size_t, std::string>> ranked;
    for (const std::string& candidate : known) {
        const std::size_t distance = few ? 0 : Distance(Shortened(word), candidate);
        if (distance <= kMaxDistance)
            ranked.emplace(distance, candidate);
    }
    std::string text;
    for (const auto& entry : ranked)
        text += (text.empty() ? (few ? "; known: " : "; nearest: ") : ", ") + entry.second;
    return text;
}

} // namespace host
