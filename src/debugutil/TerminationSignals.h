// SIGHUP, SIGINT and SIGTERM: they end the input, so that everything is released before the process ends.
#pragma once

namespace termination
{

/// Handles the termination signals from here on. The first one ends the input of the process for whoever reads it, and
/// the process itself, by that signal, when it exits. One that comes 0.5 s or more after the first ends the process at
/// once; an earlier one changes nothing. A signal that is ignored stays ignored, one that is blocked is unblocked. The
/// caller's thread is the one that reads the console. Input that a plug-in reads on another thread or has buffered
/// itself does not end.
void HandleSignals();

/// Unblocks the termination signals in the calling thread; a plug-in may have left them blocked.
void UnblockSignals();

/// Whether a termination signal has come. Any thread.
bool WasRequested();

} // namespace termination
