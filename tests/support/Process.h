// A program that a test runs on pipes, with a temporary folder for its files.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

using Environment = std::map<std::string, std::string>;

/// A running program and its output. After a timeout of 60 s (DEBUGUTIL_TEST_REPLY_TIMEOUT sets another one) the test
/// fails and the program is killed, so that no later step waits for it again.
class Process
{
public:
    Process();
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Starts a program, and kills the previous one. Standard error goes to the file "err". Throws std::system_error.
    void Start(const std::vector<std::string>& command, const Environment& environment = {});
    void Type(const std::string& words);
    /// Waits until the program prints that text, after the text of the last WaitFor.
    void WaitFor(const std::string& text);
    /// Ends the input and waits for the exit. Returns its status, or minus the signal that ended the program.
    int End();
    void Kill();
    /// The path of a file in the program's folder, which is removed with this object.
    std::string Path(const char* name) const { return m_folder + "/" + name; }
    pid_t Pid() const { return m_pid; }
    const std::string& Text() const { return m_text; }

private:
    using Clock = std::chrono::steady_clock;
    bool ReadSome(Clock::time_point deadline);
    void GiveUp(const std::string& reason);
    std::string m_folder = "/tmp/debugutil-test-XXXXXX";
    std::string m_name;
    pid_t m_pid = -1;
    int m_in = -1;
    int m_out = -1;
    std::string m_text;
    std::size_t m_seen = 0;
};

/// The number in that environment variable, or the default.
int SettingOr(const char* name, int defaultValue);

/// How long a program may take to reply.
std::chrono::seconds ReplyTimeout();

std::string ReadFile(const std::string& path);
