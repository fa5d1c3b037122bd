#include "support/Session.h"

#include "support/Tool.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

void PrintTo(const Session& session, std::ostream* stream) { *stream << session.name; }

std::vector<Session> LoadSessions()
{
    std::vector<Session> sessions;
    for (const auto& entry : std::filesystem::directory_iterator(SESSION_PATH)) {
        Session session;
        const std::map<std::string, std::string*> sections = {{"--- scenario", &session.scenario},
                                                              {"--- input", &session.input},
                                                              {"--- output", &session.output},
                                                              {"--- trace", &session.trace},
                                                              {"--- errors", &session.errors}};
        std::istringstream text(ReadFile(entry.path()));
        std::string* section = nullptr;
        for (std::string line; std::getline(text, line);) {
            const auto found = sections.find(line);
            if (found != sections.end())
                section = found->second;
            else if (section != nullptr)
                *section += line + "\n";
        }
        session.name = entry.path().stem();
        sessions.push_back(session);
    }
    std::sort(sessions.begin(), sessions.end(), [](const Session& a, const Session& b) { return a.name < b.name; });
    return sessions;
}
