// The console: all texts are written and all words are read here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace console
{

/// Writes the text to standard output with one insertion and flushes. The first text that cannot be written is reported
/// on standard error. Any thread.
void Write(const std::string& text);

/// Writes the text and a line end, as Write does.
void WriteLine(std::string text);

/// Writes a line to standard error with one insertion. Any thread.
void PrintError(const std::string& text);

/// Reads one whitespace-separated word; several on a line feed successive reads. Of a longer word the first mebibyte is
/// returned. A byte-order mark at the start of the input is skipped. False at the end of input; an input that cannot be
/// read ends, with the reason on standard error.
bool ReadWord(std::string& word);

/// Writes the prompt, then reads one word. False at the end of input.
bool Ask(const std::string& prompt, std::string& word);

/// Writes the prompt, then reads a word and converts it with ToNumber. None at the end of input; after it no prompt is
/// written.
std::optional<std::int32_t> AskNumber(const std::string& prompt);

/// After a plug-in, which may have made std::cin throw: it does not throw any more.
void ResetStreams();

/// Whether a read has met the end of input.
bool InputEnded();

/// The decimal number at the start of the word, 0 if there is none; beyond 32 bits the nearest number within.
std::int32_t ToNumber(const std::string& word);

} // namespace console
