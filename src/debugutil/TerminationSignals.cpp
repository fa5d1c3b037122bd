#include "debugutil/TerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <initializer_list>
#include <pthread.h>
#include <unistd.h>

namespace
{

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGTERM};

// Some events send two signals: a closing terminal, a service manager that ends a login session, timeout(1).
constexpr std::int64_t kSameEventMilliseconds = 500;

std::atomic<std::int64_t> g_firstTime{0}; // monotonic clock; 0: no signal has come
std::atomic<int> g_signal{0};
pthread_t g_consoleThread;
int g_emptyInput = -1;

static_assert(std::atomic<std::int64_t>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

std::int64_t MonotonicMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000 + 1; // never 0
}

// Uses the default action of the signal, so that the parent sees which signal it was.
void EndProcessBy(int signal)
{
    std::signal(signal, SIG_DFL);
    std::raise(signal); // in the handler: takes effect when the handler returns
}

// Replaces stdin with the empty input. If there is none (no descriptor was left), closes stdin: the next read fails.
void EndInput()
{
    if (dup2(g_emptyInput, STDIN_FILENO) == -1)
        close(STDIN_FILENO);
}

// The kernel may run it on any thread. A read of the console thread is interrupted and restarted (SA_RESTART) on the
// empty input, so it ends; a read that starts later ends, too.
void OnSignal(int signal, siginfo_t* info, void* /*context*/)
{
    const int savedErrno = errno;
    const std::int64_t now = MonotonicMilliseconds();
    std::int64_t first = 0;
    if (g_firstTime.compare_exchange_strong(first, now)) {
        g_signal = signal;
        EndInput();
        if (pthread_equal(pthread_self(), g_consoleThread) == 0)
            pthread_kill(g_consoleThread, signal); // only to interrupt its read
    } else if (info->si_pid != getpid() && now - first >= kSameEventMilliseconds) {
        EndProcessBy(signal); // a call may hang
    }
    errno = savedErrno;
}

// Runs after the static objects are destroyed; one of them closes the connection to the TV service.
__attribute__((destructor)) void EndProcess()
{
    termination::UnblockSignals(); // delivers a signal that a plug-in has kept blocked
    if (termination::WasRequested())
        EndProcessBy(g_signal);
}

} // namespace

namespace termination
{

void HandleSignals()
{
    g_consoleThread = pthread_self();
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) == 0) {
        g_emptyInput = ends[0];
        close(ends[1]); // a pipe without a writer is an empty input
    }
    for (const int signal : kSignals) {
        struct sigaction before = {}, action = {};
        action.sa_sigaction = OnSignal;
        action.sa_flags = SA_SIGINFO | SA_RESTART;
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
    }
    UnblockSignals(); // the parent may have blocked them
}

void UnblockSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kSignals)
        sigaddset(&signals, signal);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

bool WasRequested() { return g_signal != 0; }

} // namespace termination
