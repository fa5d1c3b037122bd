#include "host/call/Text.h"

#include <cstdio>

namespace host
{

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

} // namespace host
