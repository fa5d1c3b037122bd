// Linked into a second build of the tool: each word that is read is told on standard output at the moment it is read,
// so that what is typed, printed and called stands in one stream, in the order in which it happened. A wait stands in it,
// too, as the C library is asked for it.
#include <cctype>
#include <iostream>
#include <streambuf>
#include <string>
#include <time.h>

namespace
{

class TellingInput : public std::streambuf
{
public:
    TellingInput() : m_input(*std::cin.rdbuf(this)) {}

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
        std::cout << (m_word.empty() ? "‹end of input›\n" : "‹" + m_word + "›\n") << std::flush;
        if (m_word.empty())
            return traits_type::eof();
        m_word += '\n';
        setg(m_word.data(), m_word.data(), m_word.data() + m_word.size());
        return traits_type::to_int_type(m_word[0]);
    }

private:
    std::streambuf& m_input;
    std::string m_word;
};

TellingInput& g_input = *new TellingInput; // read until the process ends

} // namespace

extern "C" int nanosleep(const timespec* time, timespec* left)
{
    std::cout << "«" << time->tv_sec << " s " << time->tv_nsec << " ns»\n" << std::flush;
    return clock_nanosleep(CLOCK_REALTIME, 0, time, left);
}
