// The standard descriptors of the process, and errors on standard error.
#pragma once

#include <string>

namespace host
{

/// Opens /dev/null on each of the descriptors 0, 1 and 2 that is closed, so that no socket or file of the platform gets
/// its number.
void KeepStandardDescriptors();

/// Writes one line to standard error. Any thread.
void PrintError(const std::string& line);

/// Writes one line to standard error and ends the process with status 2. No static object is destroyed: some may not be
/// constructed yet.
[[noreturn]] void Fatal(const std::string& reason);

} // namespace host
