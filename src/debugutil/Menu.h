// A debug menu is a table of rows, each with its text and its action, and a loop that prints and runs them.
#pragma once

#include "debugmenu/DebugMenuUtility.h"
#include "debugutil/Console.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Leaves every menu.
constexpr int kMenuExit = 99;

/// The separator lines of a menu, each with its line end.
struct TSMenuFrame {
    std::string thick;
    std::string thin;
    bool thinUnderTitle = true;
};

/// One line of a menu. A line without an action is a divider or a heading.
template <class... Arguments> struct TSMenuRow {
    TSMenuRow(const char* text) : line(text) {} // NOLINT(google-explicit-constructor): a row of a table
    TSMenuRow(int newNumber, const char* text, std::function<void(Arguments...)> action)
        : number(newNumber), line(text), run(std::move(action))
    {
    }

    int number = 0;
    const char* line; ///< with its line end
    std::function<void(Arguments...)> run;
};

/// A menu. `Arguments` are the arguments of its actions.
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

    /// The text of the whole menu, with the line of 99.
    const std::string& Text() const { return m_text; }

    /// Runs the row with that number, or `onUnknown` if there is none. Returns false to leave the menu.
    bool Dispatch(int number, bool (*onUnknown)(int number), Arguments... arguments) const
    {
        if (number == kMenuExit)
            return false;
        const auto found = std::find_if(m_rows.begin(), m_rows.end(), [number](const auto& row) {
            return row.number == number && row.run != nullptr;
        });
        if (found == m_rows.end())
            return onUnknown(number);
        found->run(arguments...);
        return true;
    }

private:
    std::vector<TSMenuRow<Arguments...>> m_rows;
    std::string m_text;
};

/// For Dispatch: what the main menus do with an unknown number.
inline bool PrintUnrecognized(int /*number*/)
{
    console::WriteLine("Command not recognized");
    return true;
}

/// Prompts for a command; none if the word is not a number or the input ends.
inline std::optional<std::int32_t> AskCommand()
{
    std::string word;
    if (!console::Ask("cmd> ", word) || !TCDebugMenuUtility::IsNumber(word))
        return std::nullopt;
    return console::ToNumber(word);
}

/// The loop of every menu: prints it, reads a number (none if the word is not one) and dispatches it, until `dispatch`
/// returns false or the input ends.
template <class Print, class Read, class Dispatch> void RunMenu(Print print, Read read, Dispatch dispatch)
{
    std::optional<int> number;
    do {
        print();
        number = read();
    } while (!console::InputEnded() && (!number || dispatch(*number)));
}
