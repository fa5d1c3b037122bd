// Recorded sessions: what is typed, and what must stand on the console and in the trace.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct Session {
    std::string name;
    std::string scenario;
    std::string input;
    std::string output; ///< the top-level and the TPMS menu with their prompts stand as <top> and <tpms>
    std::string trace;
    std::string errors;
};

/// Test reports name the session only.
void PrintTo(const Session& session, std::ostream* stream);

/// All sessions in the folder of recorded sessions, by name.
std::vector<Session> LoadSessions();
