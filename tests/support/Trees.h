// Message trees as text: each value behind its tag, a plain one behind the letter of its width (y, q, u, t for 1, 2, 4
// and 8 bytes), bytes in quotes, a branch in brackets.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <istream>
#include <string>

std::string Show(const TCTreeBranch& branch);
TCTreeBranch Branch(std::istream&& text);

/// The lower bytes of a number, so many, where the CPU keeps them.
void* LowerBytes(std::uint64_t& number, unsigned width);

/// Tags the values by their places. Those of a message are sent without tags.
void NumberTags(TCTreeBranch& values);

/// Whether the values are of these shapes, tagged by their places: a plain value has the letter of its width; T is a
/// text, I a menu item, L a list of those.
bool Fit(const std::vector<TCTreeNode>& values, const std::string& shapes);

/// Makes the flags of a list of menu items 0 or 1.
void NormaliseFlags(TCTreeNode& list);
