// Start to first prompt, and passes through the top-level menu, each beside a program that does nothing else.
#include <array>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int kPasses = 200'000;

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

pid_t Start(const char* program, const char* argument, int in, int out)
{
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(in, 0);
        dup2(out, 1);
        execl(program, program, argument, nullptr);
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
        const pid_t pid = Start(program, nullptr, nothing, ends[1]);
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

void MenuPasses(benchmark::State& state, const char* program, const char* argument)
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
        Wait(Start(program, argument, words, out));
    }
    close(words);
    close(out);
    unlink(path);
}
BENCHMARK_CAPTURE(MenuPasses, Tool, TOOL_PATH, nullptr)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MenuPasses, Bare, HELLO_PATH, "200000")->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
