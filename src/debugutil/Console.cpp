#include "debugutil/Console.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <limits>

namespace console
{
namespace
{

constexpr int kLongestWord = 1 << 20;

} // namespace

void Write(const std::string& text) { std::cout << text << std::flush; }

void WriteLine(std::string text)
{
    text += '\n';
    Write(text);
}

bool ReadWord(std::string& word)
{
    if (!(std::cin >> std::setw(kLongestWord) >> word))
        return false;
    if (word.size() == kLongestWord) {
        // Not from a human hand. Its rest must become neither memory nor a word of its own.
        std::streambuf& input = *std::cin.rdbuf();
        int next = input.sgetc();
        while (next != std::char_traits<char>::eof() && std::isspace(next) == 0)
            next = input.snextc();
    }
    return true;
}

bool Ask(const std::string& prompt, std::string& word)
{
    Write(prompt);
    return ReadWord(word);
}

std::optional<std::int32_t> AskNumber(const std::string& prompt)
{
    std::string word;
    if (InputEnded() || !Ask(prompt, word))
        return std::nullopt;
    return ToNumber(word);
}

bool InputEnded() { return !std::cin; }

std::int32_t ToNumber(const std::string& word)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const long number = std::strtol(word.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number, Limits::min(), Limits::max()));
}

} // namespace console
