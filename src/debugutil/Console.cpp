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
#include <iostream>
#include <limits>
#include <unistd.h>
#include <utility>

namespace console
{
namespace
{

constexpr std::size_t kMaxWord = 1 << 20;
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

// Writes to the buffer, not the stream: a plug-in may have left the stream failed or throwing, and other threads write.
bool Put(const std::ostream& stream, const std::string& text)
{
    std::streambuf* const buffer = stream.rdbuf();
    const auto size = static_cast<std::streamsize>(text.size());
    return buffer != nullptr && buffer->sputn(text.data(), size) == size && buffer->pubsync() == 0;
}

// Reports only the first loss.
void ReportLoss(int error)
{
    static std::atomic<bool> reported{false}; // signals are printed on other threads
    if (!reported.exchange(true))
        PrintError(std::string("console: text was lost: ") + (error == 0 ? "unknown reason" : std::strerror(error)));
}

// Makes stdin blocking. Returns false if it already is, or if that fails.
bool MakeInputBlock()
{
    const int flags = fcntl(STDIN_FILENO, F_GETFL);
    return (flags & O_NONBLOCK) != 0 && fcntl(STDIN_FILENO, F_SETFL, flags & ~O_NONBLOCK) == 0;
}

// The next character, which stays in the input, or EOF.
int Peek()
{
    int next = 0;
    do { // another program may have left stdin non-blocking: EAGAIN is not the end of input
        errno = 0;
        next = std::cin.rdbuf()->sgetc();
    } while (next == EOF && MakeInputBlock());
    if (next == EOF && errno != 0 && !termination::WasRequested()) // a termination signal closes the input
        PrintError(std::string("console: cannot read the input: ") + std::strerror(errno));
    return next;
}

// Reads one word and truncates it to kMaxWord. Returns false at the end of input.
bool ReadTruncatedWord(std::string& word)
{
    word.clear();
    int next = Peek();
    for (; next != EOF && (word.empty() || std::isspace(next) == 0); next = Peek()) {
        if (std::isspace(next) == 0 && word.size() < kMaxWord)
            word += static_cast<char>(next);
        std::cin.rdbuf()->sbumpc();
    }
    return !word.empty();
}

} // namespace

void Write(const std::string& text)
{
    errno = 0;
    if (!Put(std::cout, text))
        ReportLoss(errno);
}

void PrintError(const std::string& text) { Put(std::cerr, text + "\n"); }

void WriteLine(std::string text)
{
    text += '\n';
    Write(text);
}

bool ReadWord(std::string& word)
{
    [[maybe_unused]] static const bool madeBlocking =
        MakeInputBlock(); // also for plug-ins, which read stdin themselves
    static bool isFirst = true;
    bool ended = InputEnded() || termination::WasRequested(); // do not read: descriptor 0 may be closed or reused
    do {
        ended = ended || !ReadTruncatedWord(word);
        if (std::exchange(isFirst, false) && word.rfind(kByteOrderMark, 0) == 0)
            word.erase(0, std::strlen(kByteOrderMark));
    } while (!ended && word.empty());
    if (termination::WasRequested()) // the word may be incomplete
        ended = true;
    // A plug-in that read a word as a number leaves failbit set; that is not the end of input.
    std::cin.clear(ended ? std::ios::eofbit | std::ios::failbit : std::ios::goodbit);
    return !ended;
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

void ResetStreams() { std::cin.exceptions(std::ios::goodbit); }

bool InputEnded() { return std::cin.bad() || (std::cin.eof() && std::cin.fail()); }

std::int32_t ToNumber(const std::string& word)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const long number = std::strtol(word.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number, Limits::min(), Limits::max()));
}

} // namespace console
