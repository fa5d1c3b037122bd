#include "debugutil/Strike.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <pthread.h>
#include <unistd.h>

namespace
{

std::atomic<int> g_signal{0};
pthread_t g_console;
int g_noInput;

// The signal's own way to end the process, so that a shell sees what it expects. In the handler it comes as that ends.
void EndBy(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// Runs on whatever thread the kernel picks. The console's thread starts its read again, on an input that has ended: a
// read that is about to begin is not missed either.
void OnSignal(int signal, siginfo_t* info, void* /*context*/)
{
    int none = 0;
    if (g_signal.compare_exchange_strong(none, signal)) {
        dup2(g_noInput, STDIN_FILENO);
        if (pthread_equal(pthread_self(), g_console) == 0)
            pthread_kill(g_console, signal); // passed on
    } else if (info->si_pid != getpid()) {
        EndBy(signal); // a call that hangs must not hold the engineer
    }
}

// Behind the last static object, which still has the connection to close.
__attribute__((destructor)) void EndProcess()
{
    if (strike::HasStruck())
        EndBy(g_signal);
}

} // namespace

void strike::Expect()
{
    g_console = pthread_self();
    sigset_t expected;
    sigemptyset(&expected);
    g_noInput = open("/dev/null", O_RDONLY | O_CLOEXEC);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction before = {}, action = {};
        action.sa_sigaction = OnSignal;
        action.sa_flags = SA_SIGINFO | SA_RESTART;
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
        sigaddset(&expected, signal);
    }
    pthread_sigmask(SIG_UNBLOCK, &expected, nullptr); // whoever started us may have held them back
}

bool strike::HasStruck() { return g_signal != 0; }
