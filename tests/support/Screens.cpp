#include "support/Screens.h"

#include <fstream>
#include <map>

namespace
{

std::map<std::string, std::string> LoadMenus()
{
    std::map<std::string, std::string> menus;
    std::ifstream text(SESSION_PATH "/menus.session");
    std::string name;
    for (std::string line; std::getline(text, line);) {
        if (line.rfind('<', 0) == 0)
            name = line + "\n";
        else
            menus[name] += line + "\n";
    }
    return menus;
}

} // namespace

std::string FoldMenus(std::string text)
{
    static const std::map<std::string, std::string> menus = LoadMenus();
    for (const auto& [name, menu] : menus)
        for (std::size_t at = 0; (at = text.find(menu, at)) != std::string::npos;)
            text.replace(at, menu.size(), name);
    return text;
}
