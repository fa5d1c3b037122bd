// Console input and output.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace console
{

/// Writes the text to standard output with one insertion and flushes. The first failure is reported on standard error.
/// Any thread.
void Write(const std::string& text);

/// The same, with a line end.
void WriteLine(std::string text);

/// Writes a line to standard error with one insertion. Any thread.
void PrintError(const std::string& text);

/// Reads one whitespace-separated word, truncated to 1 MiB. Words that follow on the same line are left for the next
/// reads. Skips a byte-order mark at the start of the input. Returns false at the end of input; a read error is printed
/// on standard error and ends the input.
bool ReadWord(std::string& word);

/// Writes the prompt, then reads one word. Returns false at the end of input.
bool Ask(const std::string& prompt, std::string& word);

/// Writes the prompt, then reads a word and converts it with ToNumber. None at the end of input; then later calls write
/// no prompt.
std::optional<std::int32_t> AskNumber(const std::string& prompt);

/// Turns off the exceptions of std::cin; a plug-in may have turned them on.
void ResetStreams();

/// Whether a read has reached the end of input.
bool InputEnded();

/// The decimal number at the start of the word, clamped to 32 bits; 0 if there is none.
std::int32_t ToNumber(const std::string& word);

} // namespace console
