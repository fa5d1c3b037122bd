#include "support/Tool.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

const char* const kToolPath = TOOL_PATH;
const char* const kServicePath = SERVICE_PATH;
const char* const kSysrootPath = SYSROOT_PATH;
const char* const kPlugInSysrootPath = PLUG_IN_SYSROOT_PATH;

namespace
{

constexpr int kPatienceMilliseconds = 60'000;

int WaitForExit(pid_t pid)
{
    int state = 0;
    waitpid(pid, &state, 0);
    return WIFEXITED(state) ? WEXITSTATUS(state) : -WTERMSIG(state);
}

} // namespace

std::string ReadFile(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

pid_t Spawn(const std::vector<std::string>& command, const Environment& environment, int in, int out, int err)
{
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        for (const char* name : {"TVS_SCENARIO", "TVS_TRACE", "TVS_BUS", "DEBUGMENU_SYSROOT"})
            unsetenv(name); // the caller's own settings
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        dup2(in, 0);
        dup2(out, 1);
        dup2(err, 2);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    return pid;
}

Tool::Tool(const std::string& scenario, Environment environment)
{
    std::signal(SIGPIPE, SIG_IGN);
    char folder[] = "/tmp/debugutil-test-XXXXXX";
    m_folder = mkdtemp(folder);
    environment.try_emplace("TVS_TRACE", m_folder + "/trace");
    environment.try_emplace("DEBUGMENU_SYSROOT", SYSROOT_PATH);
    if (!scenario.empty()) {
        std::ofstream(m_folder + "/scenario") << scenario;
        environment["TVS_SCENARIO"] = m_folder + "/scenario";
    }
    int in[2], out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0)
        std::abort();
    const int err = open((m_folder + "/err").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    m_pid = Spawn({kToolPath}, environment, in[0], out[1], err);
    close(in[0]);
    close(out[1]);
    close(err);
    m_in = in[1];
    m_out = out[0];
    fcntl(m_in, F_SETFL, O_NONBLOCK);
}

Tool::~Tool()
{
    if (m_pid > 0) {
        kill(m_pid, SIGKILL);
        WaitForExit(m_pid);
    }
    close(m_in);
    close(m_out);
    std::filesystem::remove_all(m_folder);
}

bool Tool::ReadSome(int timeoutMilliseconds)
{
    pollfd ready{m_out, POLLIN, 0};
    if (poll(&ready, 1, timeoutMilliseconds) <= 0)
        return false;
    char buffer[65536];
    const ssize_t count = read(m_out, buffer, sizeof buffer);
    if (count > 0)
        m_text.append(buffer, static_cast<std::size_t>(count));
    return count > 0;
}

void Tool::Type(const std::string& words)
{
    for (std::size_t done = 0; done < words.size();) {
        const ssize_t written = write(m_in, words.data() + done, words.size() - done);
        if (written > 0)
            done += static_cast<std::size_t>(written);
        else if (errno == EPIPE)
            return;
        else
            ReadSome(10); // its answers must not block it while we type
    }
}

void Tool::WaitFor(const std::string& text)
{
    std::size_t from = m_seen, found = std::string::npos;
    while ((found = m_text.find(text, from)) == std::string::npos) {
        from = std::max(m_seen, m_text.size() - std::min(m_text.size(), text.size()));
        ASSERT_TRUE(ReadSome(kPatienceMilliseconds)) << "no '" << text << "' after:\n" << m_text.substr(m_seen);
    }
    m_seen = found + text.size();
}

void Tool::CloseOutput()
{
    close(m_out);
    m_out = -1;
}

Outcome Tool::Finish()
{
    close(m_in);
    m_in = -1;
    while (m_out >= 0 && ReadSome(kPatienceMilliseconds))
        ;
    Outcome outcome;
    outcome.status = WaitForExit(m_pid);
    m_pid = -1;
    outcome.out = m_text;
    outcome.err = ReadFile(m_folder + "/err");
    std::ifstream trace(m_folder + "/trace");
    for (std::string line; std::getline(trace, line);)
        outcome.trace.push_back(line);
    return outcome;
}

Outcome RunTool(const std::string& input, const std::string& scenario, const Environment& environment)
{
    Tool tool(scenario, environment);
    tool.Type(input);
    return tool.Finish();
}

bool IsBalanced(const std::vector<std::string>& trace)
{
    const auto starts = [](const std::string& line, const char* prefix) { return line.rfind(prefix, 0) == 0; };
    int alive = 0;
    for (const std::string& line : trace) {
        if (starts(line, "TVServiceAPI::Create") && !starts(line, "TVServiceAPI::CreateSignalSubscriber"))
            ++alive;
        if (starts(line, "TVServiceAPI::Destroy("))
            --alive;
    }
    return alive == 0;
}

std::string Lines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

std::string RunShell(const std::string& command)
{
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    for (int character = 0; pipe != nullptr && (character = std::fgetc(pipe)) != EOF;)
        text += static_cast<char>(character);
    pclose(pipe);
    return text;
}
