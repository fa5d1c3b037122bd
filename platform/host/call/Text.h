// Texts of messages and of the trace.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host
{

/// The text with its line ends as `\n` and other control characters as `\xHH`; as a literal, quotes and backslashes are
/// escaped, too, and bytes beyond ASCII are `\xHH`.
std::string OneLine(std::string_view text, bool asLiteral = false);

/// The text without leading and trailing blanks.
std::string Stripped(const std::string& text);

/// The first 80 characters of the text, and "..." if there are more. Bytes that are not UTF-8 become U+FFFD.
std::string Shortened(const std::string& text);

/// What may have been meant by an unknown word: all known ones where these are few, as "; known: A, B", or else those
/// that differ in at most three characters, as "; nearest: A, B".
std::string Suggestion(const std::string& word, const std::vector<std::string>& known);

} // namespace host
