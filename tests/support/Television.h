// A television and a console inside the test's own process.
#pragma once

#include "host/call/Host.h"
#include "support/WordByWord.h"

#include <fstream>
#include <functional>
#include <sstream>
#include <streambuf>
#include <string>

/// Plays a scenario for one scope. The console's streams are the test's meanwhile: what is typed is read from here, and
/// what is printed and called is recorded. One at a time.
class Television
{
public:
    explicit Television(host::Scenario scenario = host::BuiltInScenario());
    ~Television();
    Television(const Television&) = delete;
    Television& operator=(const Television&) = delete;

    /// What is read from the console next; then its input ends.
    void Type(const std::string& words);

    /// What has been printed and called since the record was last taken, in the order in which it happened.
    std::string TakeRecord();

    /// Called with each word as it is read, and with "" at the end of the input.
    std::function<void(const std::string& word)> onWord = [](const std::string&) {};

private:
    int m_record; // a file in memory, which console and trace append to
    std::string m_path;
    host::Host m_host;
    host::Host& m_hostBefore;
    std::stringbuf m_typed;
    WordByWord m_input{m_typed, [this](const std::string& word) { onWord(word); }};
    std::ofstream m_output;      // without a buffer: signals are printed by threads of their own
    std::streambuf* m_before[3]; // input, output and errors
    off_t m_taken = 0;
};
