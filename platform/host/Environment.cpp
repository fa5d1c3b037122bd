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

void Refuse(const std::string& reason)
{
    Complain(reason);
    std::_Exit(2);
}

void Complain(const std::string& line)
{
    const std::string text = line + "\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

} // namespace host
