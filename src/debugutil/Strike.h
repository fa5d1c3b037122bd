// What strikes the console: SIGHUP, SIGINT and SIGTERM.
#pragma once

namespace strike
{

/// From here on the first of these signals ends the input of the process for whoever reads it, and the process itself
/// when it exits; a second one ends it at once. One that is ignored stays ignored. The caller's thread is the
/// console's. What a plug-in reads with a buffer of its own, or on a thread of its own, is its own affair.
void Expect();

/// Whether a signal has struck.
bool HasStruck();

} // namespace strike
