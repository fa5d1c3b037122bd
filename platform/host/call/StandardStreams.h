// The standard descriptors, and errors on standard error.
#pragma once

#include <string>

namespace host
{

/// Opens /dev/null on each of the descriptors 0, 1 and 2 that is closed. Otherwise a socket or a file of the platform
/// would get its number.
void KeepStandardDescriptors();

/// Writes one line to standard error. Any thread.
void PrintError(const std::string& line);

/// Prints the error and exits with status 2. Destroys no static objects: some may not be constructed yet.
[[noreturn]] void Fatal(const std::string& reason);

} // namespace host
