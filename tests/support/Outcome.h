// What a run of the tool left behind.
#pragma once

#include <gtest/gtest.h>
#include <string>

struct Outcome {
    int status; ///< exit status, or minus the signal that ended it
    std::string out;
    std::string err;
    std::string trace;
};

/// Every object that a factory made, without a fault, was released once. Signal subscribers are left out: the TV
/// service keeps them.
testing::AssertionResult IsBalanced(const Outcome& outcome);
