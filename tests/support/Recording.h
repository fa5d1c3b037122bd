// Tables that are recorded: sessions, answers and exchanges.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A recorded session: tests/e2e/sessions/NAME.session. Its record is one stream of what was read, printed and called,
/// in that order: a word is shown as ‹word› where the tool read it, a wait as «its length», and a menu as <its name>;
/// menus.session shows each menu once.
struct Recording {
    std::string name;
    std::string scenario; ///< empty for the built-in one
    std::string input;
    std::string record;
};

/// The names of all of them, sorted.
std::vector<std::string> RecordingNames();

Recording LoadRecording(const std::string& name);

/// Plays the words in a second build of the tool, which shows each word where it reads it. The exit status follows the
/// record unless it is 0.
std::string PlayWithEcho(const std::string& input, const std::string& scenario = "");

/// Plays the words in the tool itself, which shows no words.
std::string Play(const std::string& input, const std::string& scenario = "");

/// A record of PlayWithEcho as Play returns it.
std::string WithoutEcho(const std::string& record);

/// The text with each menu as its name in menus.session, with brackets and line end.
std::string FoldMenus(std::string text);

/// Succeeds if the texts are equal; otherwise the message is their diff.
testing::AssertionResult IsSame(const std::string& seen, const std::string& expected);

/// Compares with a recorded file; a failure ends with the command that records it. With DEBUGUTIL_RECORD=1 the file is
/// written instead, for the engineer to read.
testing::AssertionResult IsAsRecorded(const std::string& path, const std::string& seen);
testing::AssertionResult IsAsRecorded(const Recording& recording);

/// Compares with tests/unit/exchanges/NAME: requests in lines that begin with "> ", each followed by its answer; equal
/// answers to successive requests are written once. Every name of `required` must begin one of the requests.
void ExpectExchanges(const std::string& name, const std::vector<std::string>& required,
                     const std::function<std::string(const std::string& request)>& answer);
