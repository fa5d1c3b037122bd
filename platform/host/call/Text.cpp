#include "host/call/Text.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <set>
#include <utility>

namespace host
{
namespace
{

// Whether the byte goes on with a character of UTF-8.
bool IsContinued(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// How many characters must be typed anew, left out or put in to make the one word of the other.
std::size_t Distance(const std::string& a, const std::string& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char typed : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (typed == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string HexEscape(unsigned char byte)
{
    char code[5];
    std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
    return code;
}

std::string OneLine(const std::string& text)
{
    std::string line;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n')
            line += "\\n";
        else if (byte < 0x20 || byte == 0x7F)
            line += HexEscape(byte);
        else
            line += character;
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
    constexpr std::size_t most = 80;
    std::size_t characters = 0, bytes = 0;
    while (bytes < text.size() && (IsContinued(text[bytes]) || characters < most))
        characters += IsContinued(text[bytes++]) ? 0 : 1;
    return bytes == text.size() ? text : text.substr(0, bytes) + "...";
}

std::string NearestTo(const std::string& word, const std::vector<std::string>& known)
{
    std::set<std::pair<std::size_t, std::string>> ranked;
    for (const std::string& candidate : known)
        ranked.emplace(Distance(Shortened(word), candidate), candidate);
    std::string text;
    auto candidate = ranked.begin();
    for (const char* before : {"; nearest: ", ", "})
        if (candidate != ranked.end())
            text += before + (candidate++)->second;
    return text;
}

} // namespace host
