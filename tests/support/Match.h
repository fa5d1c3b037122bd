// Regular expressions in GLib's syntax: they are built and run many times faster than the language's own.
#pragma once

#include <string>
#include <vector>

/// Each match with its groups; a group that takes no part is empty. Neither holds zero bytes.
std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern);

/// The text with something else for each match.
std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with = "");
