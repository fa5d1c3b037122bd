#include "debugutil/DebugUtil.h"
#include "debugutil/TerminationSignals.h"

#include <csignal>

int main()
{
    // The console must release the objects of the TV service even if nobody reads its output any more ...
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // ... or its output file has reached the size limit
    termination::HandleSignals();
    TCDebugUtil::StartMenu();
    return 0;
}
