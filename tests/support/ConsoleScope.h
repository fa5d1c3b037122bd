// A console and a simulator in the test's own process.
#pragma once

#include "host/call/Host.h"
#include "support/WordByWord.h"

#include <fstream>
#include <functional>
#include <sstream>
#include <streambuf>
#include <string>

/// While it exists, the simulator has this scenario, the standard streams belong to the test, and output and calls are
/// recorded. Only one may exist at a time.
class ConsoleScope
{
public:
    explicit ConsoleScope(host::Scenario scenario = host::BuiltInScenario());
    ~ConsoleScope();
    ConsoleScope(const ConsoleScope&) = delete;
    ConsoleScope& operator=(const ConsoleScope&) = delete;

    /// Sets the words that are read next. The input ends after them.
    void Type(const std::string& words);

    /// Returns what was printed and called since the last TakeRecord, in order.
    std::string TakeRecord();

    /// Called with each word as it is read, and with "" at the end of the input.
    std::function<void(const std::string& word)> onWord = [](const std::string&) {};

private:
    int m_record; // a file in memory; console and trace append to it
    std::string m_path;
    host::Host m_host;
    host::Host& m_hostBefore;
    std::stringbuf m_typed;
    WordByWord m_input{m_typed, [this](const std::string& word) { onWord(word); }};
    std::ofstream m_output;      // unbuffered: other threads print signals
    std::streambuf* m_before[3]; // input, output and errors
    off_t m_taken = 0;
};
