#include "script/Session.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <gio/gunixinputstream.h>
#include <gio/gunixoutputstream.h>
#include <glib-unix.h>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace script
{
namespace
{

using namespace std::chrono_literals;

// Text without a line end is a prompt when no output has followed for that time. The parts of a text that ssh has
// divided arrive faster.
constexpr auto kSettleTime = 20ms;
// The network sends a lost packet again within that time.
constexpr auto kLongSettleTime = 1s;
constexpr auto kKillTime = 1s;          // from SIGTERM to SIGKILL
constexpr auto kLastOutputTime = 200ms; // a child process of the command may keep the output open
constexpr int kTerminationSignals[] = {SIGHUP, SIGINT, SIGTERM};
constexpr gint64 kSecondSignalTime = G_USEC_PER_SEC / 2;

// The pipe from the signal handler to the main loop; each byte is a termination signal. (g_unix_signal_add uses another
// thread, so that the last output of the command would be handled before the signal that caused it.)
int g_signals[2];

bool g_ignored[NSIG]; // signals that were ignored at the start

// Runs in the child process, where GLib has reset the signals.
void IgnoreSignals(gpointer)
{
    for (const int signal : kTerminationSignals)
        if (g_ignored[signal])
            std::signal(signal, SIG_IGN);
}

void OnSignal(int signal)
{
    const int error = errno;
    const auto byte = static_cast<unsigned char>(signal);
    static_cast<void>(!write(g_signals[1], &byte, 1));
    errno = error;
}

} // namespace

void Timer::Start(std::chrono::milliseconds delay, std::function<void()> function)
{
    Stop();
    m_function = std::move(function);
    // The same priority as the output's, so that a command that prints without end does not delay the timers. When both
    // are due, the output is handled first: GLib calls the older source first.
    m_source = g_timeout_add(static_cast<guint>(delay.count()), Expire, this);
}

void Timer::Stop()
{
    if (m_source != 0)
        g_source_remove(std::exchange(m_source, 0));
}

gboolean Timer::Expire(gpointer timer)
{
    auto* const self = static_cast<Timer*>(timer);
    self->m_source = 0;
    const auto function = std::move(self->m_function); // it may start this timer again
    function();
    return G_SOURCE_REMOVE;
}

void Session::m_Run(const std::vector<std::string>& command)
{
    m_CatchSignals();
    std::vector<const char*> arguments(command.size() + 1, nullptr);
    std::transform(command.begin(), command.end(), arguments.begin(), [](const auto& text) { return text.c_str(); });
    constexpr auto pipes =
        static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_PIPE);
    const std::unique_ptr<GSubprocessLauncher, decltype(&g_object_unref)> launcher(g_subprocess_launcher_new(pipes),
                                                                                   g_object_unref);
    g_subprocess_launcher_set_child_setup(launcher.get(), IgnoreSignals, nullptr, nullptr);
    g_autoptr(GError) error = nullptr;
    m_process.reset(g_subprocess_launcher_spawnv(launcher.get(), arguments.data(), &error));
    if (m_process == nullptr)
        throw std::runtime_error("cannot start " + command[0] + ": " + error->message);
    std::signal(SIGPIPE, SIG_IGN); // the end of the command is noticed by its exit
    m_input = g_unix_output_stream_get_fd(G_UNIX_OUTPUT_STREAM(g_subprocess_get_stdin_pipe(m_process.get())));
    fcntl(*m_input, F_SETFL, O_NONBLOCK);
    const int output = g_unix_input_stream_get_fd(G_UNIX_INPUT_STREAM(g_subprocess_get_stdout_pipe(m_process.get())));
    m_reader = g_unix_fd_add(output, GIOCondition(G_IO_IN | G_IO_HUP), OnReadable, this);
    g_subprocess_wait_async(m_process.get(), nullptr, OnExit, this);

    m_OnStart();
    g_main_loop_run(m_loop.get());
    if (m_signal != 0) {
        std::signal(m_signal, SIG_DFL);
        std::raise(m_signal);
    }
    m_OnEnd();
}

void Session::m_CatchSignals()
{
    if (g_unix_open_pipe(g_signals, FD_CLOEXEC, nullptr) == FALSE)
        throw std::runtime_error("cannot make a pipe");
    for (const int end : g_signals)
        fcntl(end, F_SETFL, O_NONBLOCK);
    const auto onReadable = [](int, GIOCondition, gpointer session) -> gboolean {
        static_cast<Session*>(session)->m_TakeSignals();
        return G_SOURCE_CONTINUE;
    };
    g_unix_fd_add(g_signals[0], G_IO_IN, onReadable, this);
    for (const int signal : kTerminationSignals) {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        g_ignored[signal] = action.sa_handler == SIG_IGN;
        action.sa_handler = OnSignal;
        action.sa_flags = SA_RESTART;
        if (!g_ignored[signal])
            sigaction(signal, &action, nullptr);
    }
}

bool Session::m_Type(const std::string& word)
{
    const std::string line = word + "\n";
    // A write of at most PIPE_BUF bytes to a pipe is never split, so the command never gets half a word.
    if (!m_InputIsOpen() || line.size() > PIPE_BUF || write(*m_input, line.data(), line.size()) == -1)
        return false;
    m_settling.Stop();
    m_screen.Answered();
    return true;
}

void Session::m_CloseInput()
{
    if (!m_InputIsOpen())
        return;
    m_input.reset();
    g_output_stream_close(g_subprocess_get_stdin_pipe(m_process.get()), nullptr, nullptr);
    if (m_exited)
        return;
    m_leaving.Start(m_limit, [this] {
        m_killed = true;
        g_subprocess_send_signal(m_process.get(), SIGTERM);
        m_leaving.Start(kKillTime, [this] { g_subprocess_force_exit(m_process.get()); });
    });
}

bool Session::m_EndedWell() const
{
    return m_exited && !m_killed && g_subprocess_get_if_exited(m_process.get()) != FALSE &&
           g_subprocess_get_exit_status(m_process.get()) == 0;
}

std::string Session::m_Ending() const
{
    if (!m_exited)
        return "";
    if (m_killed)
        return "the command did not end after its input and was killed";
    if (g_subprocess_get_if_exited(m_process.get()) != FALSE)
        return "the command ended with status " + std::to_string(g_subprocess_get_exit_status(m_process.get()));
    return "the command ended by signal " + std::to_string(g_subprocess_get_term_sig(m_process.get()));
}

gboolean Session::OnReadable(int output, GIOCondition, gpointer session)
{
    static_cast<Session*>(session)->m_ReadOutput(output);
    return G_SOURCE_CONTINUE;
}

void Session::m_ReadOutput(int output)
{
    m_TakeSignals();                  // before the output that they cause
    std::array<char, 1 << 16> buffer; // as much as a pipe holds
    const ssize_t count = read(output, buffer.data(), buffer.size());
    if (count <= 0) {
        m_EndOutput();
        return;
    }
    const std::string_view text(buffer.data(), static_cast<std::size_t>(count));
    m_OnOutput(text);
    m_screen.Add(text, [this](const PrintedLine& line) { m_OnLine(line); });
    m_settling.Start(kSettleTime, [this] { m_Settle(false); });
}

void Session::m_EndOutput()
{
    if (m_reader == 0)
        return;
    g_source_remove(std::exchange(m_reader, 0));
    m_settling.Stop();
    m_screen.Finish([this](const PrintedLine& line) { m_OnLine(line); });
    m_QuitIfEnded();
}

void Session::m_Settle(bool forLong)
{
    if (!forLong)
        m_settling.Start(kLongSettleTime - kSettleTime, [this] { m_Settle(true); });
    const std::string prompt = m_screen.Settle();
    if (!prompt.empty() && m_InputIsOpen())
        m_OnPrompt(prompt, forLong);
}

void Session::OnExit(GObject*, GAsyncResult* result, gpointer session)
{
    auto* const self = static_cast<Session*>(session);
    g_subprocess_wait_finish(self->m_process.get(), result, nullptr);
    self->m_exited = true;
    self->m_leaving.Start(kLastOutputTime, [self] { self->m_EndOutput(); });
    self->m_QuitIfEnded();
}

void Session::m_QuitIfEnded()
{
    if (m_exited && m_reader == 0)
        g_main_loop_quit(m_loop.get());
}

// Closing a terminal or ending a login sends two signals at once. A second one that comes later kills the command.
void Session::m_TakeSignals()
{
    for (unsigned char signal{}; read(g_signals[0], &signal, 1) == 1;) {
        if (m_signal == 0) {
            m_signal = signal;
            m_signalTime = g_get_monotonic_time();
            m_CloseInput();
        } else if (g_get_monotonic_time() - m_signalTime > kSecondSignalTime) {
            g_subprocess_force_exit(m_process.get());
        }
    }
}

} // namespace script
