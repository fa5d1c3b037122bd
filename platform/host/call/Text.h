// Texts for people: on one line, not too long, and near to what was meant.
#pragma once

#include <string>
#include <vector>

namespace host
{

/// The byte as `\xHH`.
std::string HexEscape(unsigned char byte);

/// The text with its line ends as `\n` and other control characters as `\xHH`.
std::string OneLine(const std::string& text);

/// The text without the blanks around it.
std::string Stripped(const std::string& text);

/// The first 80 characters of the text, with "..." for the rest. What is not UTF-8 becomes U+FFFD.
std::string Shortened(const std::string& text);

/// The known words that are nearest to the word, as "; nearest: A, B".
std::string NearestTo(const std::string& word, const std::vector<std::string>& known);

} // namespace host
