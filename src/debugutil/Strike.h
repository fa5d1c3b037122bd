// What strikes the console: SIGHUP, SIGINT and SIGTERM.
#pragma once

namespace strike
{

/// From here on the first of these signals ends the input of the process for whoever reads it, and the process itself
/// when it exits; a second one ends it at once. One that is ignored stays ignored. The caller's thread is the console's.
void Expect();

/// Whether a signal has struck.
bool HasStruck();

} // namespace strike
