#include "support/Match.h"

#include <glib.h>
#include <map>
#include <memory>

namespace
{

using Text = std::unique_ptr<char, decltype(&g_free)>;

const GRegex* Expression(const std::string& pattern)
{
    static std::map<std::string, const GRegex*> made;
    const GRegex*& expression = made[pattern];
    constexpr auto how = static_cast<GRegexCompileFlags>(G_REGEX_RAW | G_REGEX_DOLLAR_ENDONLY | G_REGEX_OPTIMIZE);
    if (expression == nullptr)
        expression = g_regex_new(pattern.c_str(), how, {}, nullptr);
    return expression;
}

} // namespace

std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern)
{
    std::vector<std::vector<std::string>> all;
    GMatchInfo* found = nullptr;
    g_regex_match_full(Expression(pattern), text.data(), gssize(text.size()), 0, {}, &found, nullptr);
    for (; g_match_info_matches(found) != FALSE; g_match_info_next(found, nullptr)) {
        all.emplace_back();
        for (int group = 0; group <= g_regex_get_capture_count(Expression(pattern)); ++group) {
            const Text part(g_match_info_fetch(found, group), g_free);
            all.back().emplace_back(part ? part.get() : "");
        }
    }
    g_match_info_free(found);
    return all;
}

std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with)
{
    return Text(g_regex_replace(Expression(pattern), text.data(), gssize(text.size()), 0, with.c_str(), {}, nullptr),
                g_free)
        .get();
}
