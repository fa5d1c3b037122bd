// An input buffer that delivers one word at a time, so that a test can act before the next word.
#pragma once

#include <cctype>
#include <functional>
#include <streambuf>
#include <string>
#include <utility>

class WordByWord : public std::streambuf
{
public:
    /// `read` is called with each word as it is read, and with "" at the end of the input.
    WordByWord(std::streambuf& input, std::function<void(const std::string& word)> read)
        : m_input(input), m_read(std::move(read))
    {
    }

    /// The word as a record shows it.
    static std::string Shown(const std::string& word) { return word.empty() ? "‹end of input›\n" : "‹" + word + "›\n"; }

protected:
    int_type underflow() override
    {
        m_word.clear();
        for (int next = m_input.sbumpc(); next != traits_type::eof(); next = m_input.sbumpc()) {
            if (std::isspace(next) == 0)
                m_word += traits_type::to_char_type(next);
            else if (!m_word.empty())
                break;
        }
        m_read(m_word);
        if (m_word.empty())
            return traits_type::eof();
        m_word += '\n';
        setg(m_word.data(), m_word.data(), m_word.data() + m_word.size());
        return traits_type::to_int_type(m_word[0]);
    }

private:
    std::streambuf& m_input;
    std::function<void(const std::string& word)> m_read;
    std::string m_word;
};
