#include "Environment.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace host
{

std::optional<std::string> Setting(const char* name)
{
    const char* value = secure_getenv(name);
    if (value == nullptr || *value == '\0')
        return std::nullopt;
    return value;
}

void KeepStandardDescriptors()
{
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) == -1 && errno == EBADF)
            // The lowest free number is the one that is closed. Input stays unreadable: its end is seen at once.
            (void)open("/dev/null", descriptor == 0 ? O_WRONLY : O_RDWR);
    }
}

std::string HexEscape(unsigned char byte)
{
    char code[5];
    std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
    return code;
}

std::string OneLine(const std::string& text)
{
    std::string line;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n')
            line += "\\n";
        else if (byte < 0x20 || byte == 0x7F)
            line += HexEscape(byte);
        else
            line += character;
    }
    return line;
}

void Refuse(const std::string& reason)
{
    Complain(OneLine(reason));
    std::_Exit(2);
}

void Complain(const std::string& line)
{
    const std::string text = line + "\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

} // namespace host
