// Texts on one line.
#pragma once

#include <string>

namespace host
{

/// The byte as `\xHH`.
std::string HexEscape(unsigned char byte);

/// The text with its line ends as `\n` and other control characters as `\xHH`.
std::string OneLine(const std::string& text);

} // namespace host
