// A plug-in that calls the platform and uses the console without linking either. It does not check its input, and leaves
// the settings of the streams and the signal mask changed.
#include "tvs-api/TVServiceAPI.h"

#include <csignal>
#include <cstdio>
#include <iostream>

extern "C" __attribute__((visibility("default"))) void ht_subdebugmenu()
{
    IAVControl* control = nullptr;
    if (const int result = TVServiceAPI::CreateAVControl(PROFILE_PIP, 3, &control))
        throw result; // not a std::exception
    std::printf("RestartVideoDecoder: %d\n", control->RestartVideoDecoder());
    TVServiceAPI::Destroy(control);
    int number = 0;
    std::cin >> number >> std::noskipws;
    std::cin.exceptions(std::ios::eofbit);
    std::cout.exceptions(std::ios::badbit);
    std::cout.width(1000);
    sigset_t all;
    sigfillset(&all);
    sigdelset(&all, SIGPIPE); // so that a test sees whether the tool ignores it
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}
