#include "debugutil/DebugUtil.h"

#include <csignal>

int main()
{
    // A reader of our output that goes away must not kill the console with objects of the TV service in its hands.
    std::signal(SIGPIPE, SIG_IGN);
    TCDebugUtil::StartMenu();
    return 0;
}
