// Regular expressions in GLib's syntax. They are many times faster than std::regex.
#pragma once

#include <string>
#include <vector>

/// Returns each match with its groups; a group that did not match is empty. Text and pattern must have no zero bytes.
std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern);

/// Returns the text with each match replaced.
std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with = "");
