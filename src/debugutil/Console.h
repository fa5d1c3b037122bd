// The console: the one way to write a text and to read a word.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace console
{

/// Writes the text with one insertion and flushes.
void Write(const std::string& text);

/// Writes the text and a line end with one insertion and flushes.
void WriteLine(std::string text);

/// Writes a line to standard error.
void PrintError(const std::string& text);

/// Reads one whitespace-separated word; several on a line feed successive reads. A word of more than a
/// mebibyte is cut. False at the end of input.
bool ReadWord(std::string& word);

/// Writes the prompt, then reads one word. False at the end of input.
bool Ask(const std::string& prompt, std::string& word);

/// Asks for a number and converts whatever is typed. None at the end of input; what has ended is not asked again.
std::optional<std::int32_t> AskNumber(const std::string& prompt);

/// Takes the streams back from a plug-in, which may have left anything set in them.
void ResetStreams();

/// Whether a read has found the end of input.
bool InputEnded();

/// The decimal number at the start of the word, 0 if there is none, saturated to 32 bits.
std::int32_t ToNumber(const std::string& word);

} // namespace console
