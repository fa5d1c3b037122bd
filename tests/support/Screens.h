// The screens as they stand on the console.
#pragma once

#include <string>

/// The text with each menu as its name in menus.session, with brackets and line end.
std::string FoldMenus(std::string text);
