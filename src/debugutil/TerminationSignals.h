// SIGHUP, SIGINT and SIGTERM end the input, so that everything is released before the process ends.
#pragma once

namespace termination
{

/// Installs the handlers; call it on the thread that reads the console. The first signal ends the standard input, and
/// when the process exits, it ends by that signal. A signal 0.5 s or more after the first ends the process at once; an
/// earlier one has no effect. Ignored signals stay ignored, blocked ones are unblocked. Input that a plug-in reads on
/// another thread or has buffered does not end.
void HandleSignals();

/// Unblocks the termination signals in the calling thread.
void UnblockSignals();

/// Whether a termination signal has come. Any thread.
bool WasRequested();

} // namespace termination
