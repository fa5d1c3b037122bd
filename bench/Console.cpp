// The time from the start to the first prompt, and the time per pass of the top-level menu. Each is compared with a
// program that does nothing else.
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

constexpr int kPasses = 200'000;

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

pid_t Start(std::vector<std::string> command, int in, int out)
{
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(in, 0);
        dup2(out, 1);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    return pid;
}

void Wait(pid_t pid)
{
    int status = 0;
    Require(waitpid(pid, &status, 0) == pid && status == 0);
}

void StartToPrompt(benchmark::State& state, const char* program)
{
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    for (auto _ : state) {
        std::array<int, 2> ends{};
        Require(pipe2(ends.data(), O_CLOEXEC) == 0);
        const pid_t pid = Start({program}, nothing, ends[1]);
        close(ends[1]);
        std::string text;
        std::array<char, 4096> buffer{};
        while (text.find("cmd> ") == std::string::npos) {
            const ssize_t count = read(ends[0], buffer.data(), buffer.size());
            Require(count > 0);
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
        state.PauseTiming();
        while (read(ends[0], buffer.data(), buffer.size()) > 0)
            ;
        Wait(pid);
        close(ends[0]);
        state.ResumeTiming();
    }
    close(nothing);
}
BENCHMARK_CAPTURE(StartToPrompt, Tool, TOOL_PATH)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(StartToPrompt, Hello, HELLO_PATH)->UseRealTime()->Unit(benchmark::kMicrosecond);

void MenuPasses(benchmark::State& state, const std::vector<std::string>& command)
{
    char path[] = "/tmp/debugutil-passes-XXXXXX";
    const int words = mkstemp(path);
    {
        std::ofstream file(path);
        for (int i = 0; i < kPasses; ++i)
            file << "2\n";
        file << "99\n";
    }
    const int out = open("/dev/null", O_WRONLY | O_CLOEXEC);
    for (auto _ : state) {
        Require(lseek(words, 0, SEEK_SET) == 0);
        Wait(Start(command, words, out));
    }
    close(words);
    close(out);
    unlink(path);
}

// Returns what the tool prints between its first line and its first prompt.
std::string TopLevelMenu()
{
    const std::string command = std::string(TOOL_PATH) + " </dev/null";
    std::FILE* const tool = popen(command.c_str(), "r");
    std::string text(4096, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), tool));
    Require(pclose(tool) == 0);
    const std::size_t begin = text.find('\n') + 1;
    return text.substr(begin, text.find("cmd> ") - begin);
}

void ToolMenuPasses(benchmark::State& state) { MenuPasses(state, {TOOL_PATH}); }
BENCHMARK(ToolMenuPasses)->UseRealTime()->Unit(benchmark::kMillisecond);

void BareMenuPasses(benchmark::State& state)
{
    MenuPasses(state, {HELLO_PATH, std::to_string(kPasses), TopLevelMenu(), "cmd> ", "executing: TV Player\n",
                       "Command not implemented\n"});
}
BENCHMARK(BareMenuPasses)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
