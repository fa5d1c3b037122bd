// A console and a simulator inside the test's own process.
#pragma once

#include "host/call/Host.h"
#include "support/WordByWord.h"

#include <fstream>
#include <functional>
#include <sstream>
#include <streambuf>
#include <string>

/// For its lifetime the simulator has that scenario, the standard streams are the test's, and what is printed and called
/// is recorded. One at a time.
class ConsoleScope
{
public:
    explicit ConsoleScope(host::Scenario scenario = host::BuiltInScenario());
    ~ConsoleScope();
    ConsoleScope(const ConsoleScope&) = delete;
    ConsoleScope& operator=(const ConsoleScope&) = delete;

    /// The words that are read next; after them the input ends.
    void Type(const std::string& words);

    /// What was printed and called since the last call, in that order.
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
