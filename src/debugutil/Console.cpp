#include "debugutil/Console.h"

#include "debugutil/TerminationSignals.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iomanip>
#include <iostream>
#include <limits>
#include <unistd.h>

namespace console
{
namespace
{

constexpr int kMaxWord = 1 << 20;

// Says once why texts are lost; the next one may find room again.
void ReportLoss()
{
    static std::atomic<bool> reported{false}; // signal printers write on threads of their own
    if (!reported.exchange(true))
        PrintError(std::string("console: text was lost: ") + std::strerror(errno));
}

// An earlier program may have left the input without waiting; what reads like its end is none then.
bool MakeInputWait()
{
    const int flags = fcntl(STDIN_FILENO, F_GETFL);
    return (flags & O_NONBLOCK) != 0 && fcntl(STDIN_FILENO, F_SETFL, flags & ~O_NONBLOCK) == 0;
}

// A plug-in that was given a word for a number leaves the stream failed; that is not the end of the input.
void PrepareInput()
{
    [[maybe_unused]] static const bool waitsFromTheStart = MakeInputWait();
    if (!InputEnded())
        std::cin.clear();
}

} // namespace

void Write(const std::string& text)
{
    if (!std::cout)
        std::cout.clear(); // there may be room again
    if (!(std::cout << text << std::flush))
        ReportLoss();
}

void PrintError(const std::string& text)
{
    if (!std::cerr)
        std::cerr.clear();
    std::cerr << text + "\n";
}

void WriteLine(std::string text)
{
    text += '\n';
    Write(text);
}

bool ReadWord(std::string& word)
{
    if (termination::WasRequested()) { // descriptor 0 may be closed, or be something else by now
        std::cin.setstate(std::ios::eofbit | std::ios::failbit);
        return false;
    }
    PrepareInput();
    while (!(std::cin >> std::setw(kMaxWord) >> word)) {
        if (!MakeInputWait())
            return false;
        std::cin.clear();
    }
    while (std::cin.eof() && MakeInputWait()) { // in the middle of the word
        std::cin.clear();
        std::string rest;
        if (std::isspace(std::cin.peek()) == 0 && std::cin >> rest)
            word += rest;
    }
    if (termination::WasRequested()) { // whether the word was there before it, or is the half of one
        std::cin.setstate(std::ios::eofbit | std::ios::failbit);
        return false;
    }
    if (word.size() == kMaxWord) {
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

void ResetStreams()
{
    std::cin.exceptions(std::ios::goodbit);
    std::cin.setf(std::ios::skipws);
    std::cout.exceptions(std::ios::goodbit);
    std::cout.width(0);
}

bool InputEnded() { return std::cin.bad() || (std::cin.eof() && std::cin.fail()); }

std::int32_t ToNumber(const std::string& word)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const long number = std::strtol(word.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number, Limits::min(), Limits::max()));
}

} // namespace console
