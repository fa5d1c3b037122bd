// What a run of the tool left behind.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

struct Outcome {
    int status; ///< exit status, or minus the signal that ended it
    std::string out;
    std::string err;
    std::string scenario; ///< what it ran on; empty for the built-in one
    std::vector<std::string> trace;
};

/// The last call of the trace, "(no call)" if there is none.
std::string LastCall(const Outcome& outcome);

/// Every object that a factory made was released once. Signal subscribers are left out: the TV service keeps them.
testing::AssertionResult IsBalanced(const Outcome& outcome);

/// The lines joined, to compare a whole trace at once.
std::string Lines(const std::vector<std::string>& lines);
