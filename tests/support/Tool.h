// The real executable on pipes.
#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

/// What a run of the tool left behind.
struct Outcome {
    std::string out;
    std::string err;
    int status; ///< exit status, or minus the signal that ended it
    std::vector<std::string> trace;
};

using Environment = std::map<std::string, std::string>;

/// A running tool. Fails the test when it does not answer in time.
class Tool
{
public:
    /// The scenario is the text of a file; empty for the built-in one.
    explicit Tool(const std::string& scenario = "", Environment environment = {});
    ~Tool();
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    void Type(const std::string& words);
    /// Waits until that text has come, behind the text waited for last.
    void WaitFor(const std::string& text);
    /// Ends the input, waits for the exit and collects all.
    Outcome Finish();
    /// Ends the input; nobody reads the output from here on.
    void CloseOutput();
    pid_t Pid() const { return m_pid; }

private:
    bool ReadSome(int timeoutMilliseconds);
    std::string m_folder;
    pid_t m_pid = -1;
    int m_in = -1;
    int m_out = -1;
    std::string m_text;
    std::size_t m_seen = 0;
};

/// Types all of the input and ends it.
Outcome RunTool(const std::string& input, const std::string& scenario = "", const Environment& environment = {});

/// Every object that was created was released, apart from signal subscribers, which the TV service keeps.
bool IsBalanced(const std::vector<std::string>& trace);

/// Starts a program with its output in a file or on a pipe; returns its process id.
pid_t Spawn(const std::vector<std::string>& command, const Environment& environment, int in, int out, int err);

/// The lines joined, to compare a whole trace at once.
std::string Lines(const std::vector<std::string>& lines);

std::string ReadFile(const std::string& path);

/// What the shell command prints.
std::string RunShell(const std::string& command);

extern const char* const kToolPath;
extern const char* const kServicePath;
extern const char* const kSysrootPath;       ///< of the build
extern const char* const kPlugInSysrootPath; ///< with a plug-in that calls the platform
