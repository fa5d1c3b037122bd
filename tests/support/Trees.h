// Message trees as text: each value behind its tag, a plain one behind the letter of its width (y, q, u, t for 1, 2, 4
// and 8 bytes), bytes in quotes, a branch in brackets.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <functional>
#include <istream>
#include <string>

std::string Show(const TCTreeBranch& branch);
TCTreeBranch Branch(std::istream&& text);

/// The lower bytes of a number, so many, where the CPU keeps them.
void* LowerBytes(std::uint64_t& number, unsigned width);

/// Goes through a file of what is said, in lines behind "> ", and what is answered to it, below: once where the same is
/// answered to several. Fails where the answer is another one.
void ExpectTalk(const std::string& name, const std::function<std::string(const std::string& said)>& answer);
