// Message trees as text. Each value follows its tag and a colon: a number as the letter of its width (y, q, u, t: 1, 2, 4,
// 8 bytes) and its digits, bytes in quotes, a branch in brackets.
#pragma once

#include "tvs-api-internal/Tree.h"

#include <istream>
#include <string>

std::string Show(const TCTreeBranch& branch);
TCTreeBranch Branch(std::istream&& text);

/// The address of the lower `width` bytes of a number, on a CPU of either byte order.
void* LowerBytes(std::uint64_t& number, unsigned width);

/// Tags the values with their positions. Messages do not carry the tags of their values.
void NumberTags(TCTreeBranch& values);

/// Whether the values have these shapes, one letter each, and their positions as tags. The letter of a number is that of
/// its width; T is a text, I a menu item, L a list of menu items.
bool Fit(const std::vector<TCTreeNode>& values, const std::string& shapes);

/// Makes the flags of a list of menu items 0 or 1.
void NormaliseFlags(TCTreeNode& list);
