// A television and a console inside the test's own process.
#pragma once

#include "host/call/Host.h"

#include <fstream>
#include <sstream>
#include <streambuf>
#include <string>

/// Plays a scenario for one scope. The console's streams are the test's meanwhile: what is typed is read from here, and
/// what is printed and called is recorded. One at a time.
class Television
{
public:
    /// The scenario is the text of a file; empty for the built-in one.
    explicit Television(const std::string& scenario = "");
    ~Television();
    Television(const Television&) = delete;
    Television& operator=(const Television&) = delete;

    /// What is read from the console next; then its input ends.
    void Type(const std::string& words);

    /// What has been printed and called since the record was last taken, in the order in which it happened.
    std::string TakeRecord();

private:
    int m_record; // a file in memory, which console and trace append to
    std::string m_path;
    host::Host m_host;
    host::Host& m_hostBefore;
    std::istringstream m_input;
    std::ofstream m_output;
    std::streambuf* m_inputBefore;
    std::streambuf* m_outputBefore;
    off_t m_taken = 0;
};
