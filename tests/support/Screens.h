// The screens as they stand on the console.
#pragma once

#include <map>
#include <string>

/// The menus by their names in menus.session, with brackets and line end, which shows each of them once.
const std::map<std::string, std::string>& Menus();
/// The text with each menu as its name.
std::string FoldMenus(std::string text);

extern const std::string kTopMenu; ///< with its prompt
