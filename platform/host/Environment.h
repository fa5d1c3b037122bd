// What the host platform takes from its process: settings, standard descriptors, the way out when set-up fails.
#pragma once

#include <optional>
#include <string>

namespace host
{

/// The environment variable; none when it is unset or empty.
std::optional<std::string> Setting(const char* name);

/// Gives each of the descriptors 0, 1 and 2 that is closed to /dev/null, so that no socket or file of the platform is
/// taken for the console.
void KeepStandardDescriptors();

/// The byte as `\xHH`.
std::string HexEscape(unsigned char byte);

/// The text with its line ends as `\n` and other control characters as `\xHH`.
std::string OneLine(const std::string& text);

/// Writes one line to standard error and ends the process with status 2. Static objects may be half made, so none of
/// them is destroyed.
[[noreturn]] void Refuse(const std::string& reason);

/// Writes one line to standard error.
void Complain(const std::string& line);

} // namespace host
