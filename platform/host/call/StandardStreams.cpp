#include "host/call/StandardStreams.h"

#include "host/call/Text.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace host
{

void KeepStandardDescriptors()
{
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) == -1 && errno == EBADF)
            (void)open("/dev/null", O_RDWR); // open returns the lowest free descriptor, which is this one
    }
}

void PrintError(const std::string& line)
{
    const std::string text = line + "\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

void Fatal(const std::string& reason)
{
    PrintError(OneLine(reason));
    std::_Exit(2);
}

} // namespace host
