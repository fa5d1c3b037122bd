#include "support/Process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace
{

// A program that prints without end would fill the memory before the timeout.
constexpr std::size_t kMaxUnread = 64U << 20;
constexpr std::size_t kMaxReported = 4000; // a failure shows the end of the output

} // namespace

int SettingOr(const char* name, int defaultValue)
{
    const char* const setting = std::getenv(name);
    return setting == nullptr ? defaultValue : std::atoi(setting);
}

std::chrono::seconds ReplyTimeout() { return std::chrono::seconds(SettingOr("DEBUGUTIL_TEST_REPLY_TIMEOUT", 60)); }

Process::Process()
{
    if (mkdtemp(m_folder.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), m_folder);
}

Process::~Process()
{
    Kill();
    std::filesystem::remove_all(m_folder);
}

void Process::Start(const std::vector<std::string>& command, const Environment& environment)
{
    Kill();
    std::signal(SIGPIPE, SIG_IGN);
    m_name = command[0];
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int err = open(Path("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    int in[2], out[2];
    if (err < 0 || pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || (m_pid = fork()) < 0)
        throw std::system_error(errno, std::generic_category(), m_name);
    if (m_pid == 0) {
        setpgid(0, 0); // what a shell starts is killed with it
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::signal(SIGPIPE, SIG_DFL);
        for (const char* name : {"TVS_SCENARIO", "TVS_TRACE", "TVS_BUS", "DEBUGMENU_SYSROOT"})
            unsetenv(name); // the tests set their own
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        dup2(in[0], 0);
        dup2(out[1], 1);
        dup2(err, 2);
        execvp(arguments[0], arguments.data());
        std::perror(arguments[0]);
        _exit(127);
    }
    setpgid(m_pid, m_pid); // here too: either process may run first
    for (const int descriptor : {in[0], out[1], err})
        close(descriptor);
    m_in = in[1];
    m_out = out[0];
    fcntl(m_in, F_SETFL, O_NONBLOCK);
}

bool Process::ReadSome(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd ready{m_out, POLLIN, 0};
    if (left <= 0 || m_text.size() - m_seen > kMaxUnread || poll(&ready, 1, static_cast<int>(left)) <= 0)
        return false;
    char buffer[65536];
    const ssize_t count = read(m_out, buffer, sizeof buffer);
    if (count > 0)
        m_text.append(buffer, static_cast<std::size_t>(count));
    return count > 0;
}

void Process::GiveUp(const std::string& reason)
{
    ADD_FAILURE() << m_name << " " << reason << " after:\n"
                  << m_text.substr(m_text.size() - std::min(m_text.size(), kMaxReported)) << ReadFile(Path("err"));
    if (m_pid > 0)
        kill(-m_pid, SIGKILL);
}

void Process::Type(const std::string& words)
{
    const auto deadline = Clock::now() + ReplyTimeout();
    for (std::size_t done = 0; done < words.size();) {
        const ssize_t written = write(m_in, words.data() + done, words.size() - done);
        if (written > 0)
            done += static_cast<std::size_t>(written);
        else if (errno != EAGAIN)
            return; // the program has exited
        else if (Clock::now() > deadline)
            return GiveUp("does not read its input");
        else
            ReadSome(Clock::now() + std::chrono::milliseconds(10)); // it must not block on a full output pipe
    }
}

void Process::WaitFor(const std::string& text)
{
    const auto deadline = Clock::now() + ReplyTimeout();
    std::size_t from = m_seen, found = std::string::npos;
    while ((found = m_text.find(text, from)) == std::string::npos) {
        from = std::max(m_seen, m_text.size() - std::min(m_text.size(), text.size()));
        if (!ReadSome(deadline))
            return GiveUp("does not print '" + text + "'");
    }
    m_seen = found + text.size();
}

int Process::End()
{
    const auto deadline = Clock::now() + ReplyTimeout();
    close(std::exchange(m_in, -1));
    while (m_out >= 0 && ReadSome(deadline))
        ;
    int state = 0;
    pid_t ended = 0;
    while ((ended = waitpid(m_pid, &state, WNOHANG)) == 0 && Clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (ended == 0) {
        GiveUp("does not end");
        waitpid(m_pid, &state, 0);
    }
    m_pid = -1;
    return WIFEXITED(state) ? WEXITSTATUS(state) : -WTERMSIG(state);
}

void Process::Kill()
{
    if (m_pid > 0) {
        kill(-m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    m_pid = -1;
    close(std::exchange(m_in, -1));
    close(std::exchange(m_out, -1));
}

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}
