#include "debugutil/DebugUtil.h"
#include "debugutil/TerminationSignals.h"

#include <csignal>

int main()
{
    // A reader of our output that goes away must not kill the console with objects of the TV service in its hands.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // nor must a file that has reached its limit
    termination::HandleSignals();
    TCDebugUtil::StartMenu();
    return 0;
}
