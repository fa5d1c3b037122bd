// A debug menu is a table: the same rows print it and run what is chosen.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What leaves every menu.
constexpr int kMenuExit = 99;

/// The rules around a menu, each with its line end.
struct TSMenuFrame {
    std::string thick;
    std::string thin;
    bool thinUnderTitle = true;
};

/// One line of a menu; a line that runs nothing only divides or heads others.
template <class... Arguments> struct TSMenuRow {
    TSMenuRow(std::string text) : line(std::move(text)) {} // NOLINT(google-explicit-constructor): a row of a table
    TSMenuRow(int newNumber, std::string text, std::function<void(Arguments...)> action)
        : number(newNumber), line(std::move(text)), run(std::move(action))
    {
    }

    int number = 0;
    std::string line; ///< with its line end
    std::function<void(Arguments...)> run;
};

/// A menu whose rows run with those arguments.
template <class... Arguments> class TCMenu
{
public:
    TCMenu(const TSMenuFrame& frame, const std::string& title, std::vector<TSMenuRow<Arguments...>> rows)
        : m_rows(std::move(rows))
    {
        m_text = frame.thick + title;
        if (frame.thinUnderTitle)
            m_text += frame.thin;
        for (const auto& row : m_rows)
            m_text += row.line;
        m_text += frame.thin + " 99 : Exit\n" + frame.thick; // kMenuExit
    }

    /// The whole menu with its way out.
    const std::string& Text() const { return m_text; }

    /// The row that runs something for that number, or null.
    const TSMenuRow<Arguments...>* Find(int number) const
    {
        const auto found = std::find_if(m_rows.begin(), m_rows.end(), [number](const auto& row) {
            return row.number == number && row.run != nullptr;
        });
        return found == m_rows.end() ? nullptr : &*found;
    }

private:
    std::vector<TSMenuRow<Arguments...>> m_rows;
    std::string m_text;
};
