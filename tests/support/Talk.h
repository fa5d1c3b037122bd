// Talks: files of what is said, in lines behind "> ", and what is answered to it, below: once where the same is answered
// to several.
#pragma once

#include <functional>
#include <string>

/// Goes through the file; fails where the answer is another one.
void ExpectTalk(const std::string& name, const std::function<std::string(const std::string& said)>& answer);
