// The screens as they stand on the console.
#pragma once

#include <string>

extern const std::string kTopMenu;     ///< with its prompt
extern const std::string kTVSMenu;     ///< with its prompt
extern const std::string kTPMSMenu;    ///< with its prompt
extern const std::string kSourceGuide; ///< of the TVS menu, with its prompt
extern const std::string kSubIdPrompt;

/// What the console shows when the TVS menu is entered from the start, `text` follows its prompt, and the input ends.
std::string InTVSMenu(const std::string& text);
