// A debug menu is a table: the same rows print it and run what is chosen.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

/// What leaves every menu.
constexpr int kMenuExit = 99;

/// One line of a menu; a line that runs nothing only divides or heads others.
template <class... Arguments> struct TSMenuRow {
    int number;
    const char* line; ///< with its line end
    std::function<void(Arguments...)> run;
};

template <class... Arguments> using TMenuRows = std::vector<TSMenuRow<Arguments...>>;

/// The rules around a menu, each with its line end.
struct TSMenuFrame {
    std::string thick;
    std::string thin;
    bool thinUnderTitle = true;
};

/// The text of a menu with its way out.
template <class Rows> std::string FrameMenu(const TSMenuFrame& frame, const char* title, const Rows& rows)
{
    std::string text = frame.thick + title;
    if (frame.thinUnderTitle)
        text += frame.thin;
    for (const auto& row : rows)
        text += row.line;
    return text + frame.thin + " 99 : Exit\n" + frame.thick; // kMenuExit
}

/// The row that runs something for that number, or null.
template <class Rows> const typename Rows::value_type* FindRow(const Rows& rows, int number)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [number](const auto& row) { return row.number == number && row.run != nullptr; });
    return found == rows.end() ? nullptr : &*found;
}
