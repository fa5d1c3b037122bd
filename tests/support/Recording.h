// Recorded sessions: one stream of what is typed, printed and called, in the order in which it happens.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A file of the folder of recorded sessions. In its record a word that the tool read stands as ‹word› where it was
/// read, a wait as «its length», and a menu as <its name>: menus.session shows each menu once. Nothing else is folded.
struct Recording {
    std::string name;
    std::string scenario; ///< empty for the built-in one
    std::string input;
    std::string record;
};

/// Of all of them, sorted.
std::vector<std::string> RecordingNames();

Recording LoadRecording(const std::string& name);

/// Plays the words and returns what was read, printed and called; behind it stands the exit status unless that is 0.
std::string Tell(const std::string& input, const std::string& scenario = "");

/// The same of the tool as it ships, which does not tell what it reads.
std::string Play(const std::string& input, const std::string& scenario = "");

/// A told record as the tool itself leaves it.
std::string WithoutWords(const std::string& told);

/// The texts are the same; if not, the message is what `diff` shows.
testing::AssertionResult IsSame(const std::string& seen, const std::string& expected);

/// The file says the same. With DEBUGUTIL_RECORD=1 it is written anew, to be read.
testing::AssertionResult IsAsRecorded(const std::string& path, const std::string& seen);
testing::AssertionResult IsAsRecorded(const Recording& recording);
