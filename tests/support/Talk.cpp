#include "support/Talk.h"

#include "support/Process.h"

#include <gtest/gtest.h>
#include <sstream>

void ExpectTalk(const std::string& name, const std::function<std::string(const std::string& said)>& answer)
{
    const std::string expected = ReadFile(TALKS_PATH "/" + name);
    std::istringstream lines(expected);
    std::string talk, last;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("> ", 0) != 0)
            continue;
        const std::string told = answer(line.substr(2)) + "\n";
        talk += (told == last ? "" : last) + line + "\n";
        last = told;
    }
    EXPECT_EQ(talk + last, expected);
}
