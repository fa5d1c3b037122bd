#include "support/Match.h"

#include <glib.h>
#include <memory>

static std::unique_ptr<GRegex, decltype(&g_regex_unref)> Expression(const std::string& pattern)
{
    constexpr auto flags = static_cast<GRegexCompileFlags>(G_REGEX_RAW | G_REGEX_DOLLAR_ENDONLY);
    return {g_regex_new(pattern.c_str(), flags, {}, nullptr), g_regex_unref};
}

std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern)
{
    std::vector<std::vector<std::string>> all;
    const auto expression = Expression(pattern);
    GMatchInfo* found = nullptr;
    g_regex_match(expression.get(), text.c_str(), {}, &found);
    for (; g_match_info_matches(found) != FALSE; g_match_info_next(found, nullptr)) {
        char** const parts = g_match_info_fetch_all(found);
        all.emplace_back(parts, parts + g_strv_length(parts));
        all.back().resize(1 + static_cast<std::size_t>(g_regex_get_capture_count(expression.get())));
        g_strfreev(parts);
    }
    g_match_info_free(found);
    return all;
}

std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with)
{
    const auto expression = Expression(pattern);
    const std::unique_ptr<char, decltype(&g_free)> replaced(
        g_regex_replace(expression.get(), text.c_str(), -1, 0, with.c_str(), {}, nullptr), g_free);
    return replaced.get();
}
