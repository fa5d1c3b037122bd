// Recorded test data: sessions, answers and exchanges.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Plays the words in a second build of the tool, which prints each word when it reads it. The result has in order what
/// the tool read, printed and called: a word as ‹word›, a sleep as «its length», a menu as <its name>, and the exit status
/// if it is not 0. An empty scenario is the built-in one.
std::string PlayWithEcho(const std::string& words, const std::string& scenario = "");

/// Plays the words in the tool itself, which prints neither words nor sleeps.
std::string Play(const std::string& words, const std::string& scenario = "");

/// Replaces each menu by its name in menus.session, in angle brackets and on a line of its own.
std::string FoldMenus(std::string text);

/// Succeeds if the texts are equal. Otherwise the message is their diff.
testing::AssertionResult IsSame(const std::string& seen, const std::string& expected);

/// Compares with a recorded file. The message of a failure ends with the command that records the file again. With
/// DEBUGUTIL_RECORD=1 the file is written first, and the engineer checks it with git diff.
testing::AssertionResult MatchesRecord(const std::string& path, const std::string& seen);

/// Sends each request of tests/unit/exchanges/NAME to `answer` and compares the answers with those of the file. A request
/// is a line that begins with "> "; its answer follows. Equal answers to successive requests are written once, after the
/// last of them. The file must have a request that begins with each of the names in `required`.
void ExpectExchanges(const std::string& name, const std::vector<std::string>& required,
                     const std::function<std::string(const std::string& request)>& answer);
