// Text functions for error messages and the trace.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host
{

/// The text with line ends written as `\n` and other control characters as `\xHH`. As a literal, quotes and backslashes
/// are escaped, too, and bytes that are not ASCII are written as `\xHH`.
std::string OneLine(std::string_view text, bool asLiteral = false);

/// The text without leading and trailing blanks.
std::string Stripped(const std::string& text);

/// The first 80 characters of the text, with "..." if there are more. Bytes that are not valid UTF-8 become U+FFFD.
std::string Shortened(const std::string& text);

/// A hint for the message about an unknown word: "; known: A, B" lists up to ten known words, "; nearest: A, B" those
/// that differ in at most three characters. Empty if there is none.
std::string Suggestion(const std::string& word, const std::vector<std::string>& known);

} // namespace host
