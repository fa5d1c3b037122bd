// Recorded test data: sessions, answers and exchanges.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A recorded session: tests/e2e/sessions/NAME.session. Its record shows in order what the tool read, printed and
/// called: a word as ‹word›, a sleep as «its length», and a menu as <its name>. menus.session has the text of each menu.
struct Recording {
    std::string name;
    std::string scenario; ///< empty for the built-in one
    std::string input;
    std::string record;
};

/// Returns the names of all recorded sessions, sorted.
std::vector<std::string> RecordingNames();

Recording LoadRecording(const std::string& name);

/// Plays the words in a second build of the tool, which prints each word when it reads it. Returns the record, with the
/// exit status appended if it is not 0.
std::string PlayWithEcho(const std::string& input, const std::string& scenario = "");

/// Plays the words in the tool itself, which does not print them.
std::string Play(const std::string& input, const std::string& scenario = "");

/// Converts a record of PlayWithEcho to the record that Play returns.
std::string WithoutEcho(const std::string& record);

/// Replaces each menu by its name in menus.session, in angle brackets and on a line of its own.
std::string FoldMenus(std::string text);

/// Succeeds if the texts are equal. Otherwise the message is their diff.
testing::AssertionResult IsSame(const std::string& seen, const std::string& expected);

/// Compares with a recorded file. The message of a failure ends with the command that records the file again. With
/// DEBUGUTIL_RECORD=1 the file is written first, and the engineer checks it with git diff.
testing::AssertionResult MatchesRecord(const std::string& path, const std::string& seen);
testing::AssertionResult MatchesRecord(const Recording& recording);

/// Sends each request of tests/unit/exchanges/NAME to `answer` and compares the answers with those of the file. A request
/// is a line that begins with "> "; its answer follows. Equal answers to successive requests are written once, after the
/// last of them. The file must have a request that begins with each of the names in `required`.
void ExpectExchanges(const std::string& name, const std::vector<std::string>& required,
                     const std::function<std::string(const std::string& request)>& answer);
