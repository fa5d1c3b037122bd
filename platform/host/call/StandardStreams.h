// The process's standard descriptors, and what the platform says on the third.
#pragma once

#include <string>

namespace host
{

/// Gives each of the descriptors 0, 1 and 2 that is closed to /dev/null, so that no socket or file of the platform is
/// taken for the console.
void KeepStandardDescriptors();

/// Writes one line to standard error.
void PrintError(const std::string& line);

/// Writes one line to standard error and ends the process with status 2. Static objects may be half made, so none of
/// them is destroyed.
[[noreturn]] void Fatal(const std::string& reason);

} // namespace host
