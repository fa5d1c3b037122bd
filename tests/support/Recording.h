// Recorded sessions: what is typed, and what must stand on the console, in the trace and on standard error.
#pragma once

#include "support/Outcome.h"

#include <string>
#include <vector>

/// A file of the folder of recorded sessions. Behind the scenario and the input stand what a run left behind; in its
/// output the top-level and the TPMS menu with their prompts are <top> and <tpms>.
struct Recording {
    std::string name;
    std::string scenario;
    std::string input;
};

/// Of all of them, sorted.
std::vector<std::string> RecordingNames();

Recording LoadRecording(const std::string& name);

/// The run left behind what the file says; if not, the message is what `diff` shows.
testing::AssertionResult IsAsRecorded(const Recording& recording, const Outcome& outcome);

/// Writes the file anew with what the run left behind.
void Rewrite(const Recording& recording, const Outcome& outcome);
