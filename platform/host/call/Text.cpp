#include "host/call/Text.h"

#include <algorithm>
#include <cstdio>
#include <glib.h>
#include <memory>
#include <numeric>
#include <set>
#include <utility>

namespace host
{
namespace
{

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
    constexpr glong kMaxCharacters = 80;
    // Bytes that are no characters would not count.
    const std::unique_ptr<char, decltype(&g_free)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    if (g_utf8_strlen(valid.get(), -1) <= kMaxCharacters)
        return valid.get();
    return std::string(valid.get(), g_utf8_offset_to_pointer(valid.get(), kMaxCharacters)) + "...";
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
