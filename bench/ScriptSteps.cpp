// The time per step of a checked script, compared with the same word on a pipe. It includes the 20 ms for which the player
// waits at each prompt.
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{

constexpr int kSteps = 100;

void Run(benchmark::State& state, const char* line, const std::string& command)
{
    char words[] = "/tmp/debugutil-steps-XXXXXX";
    close(mkstemp(words));
    {
        std::ofstream file(words);
        for (int i = 0; i < kSteps; ++i)
            file << line << "2\n";
        file << line << "99\n";
    }
    for (auto _ : state)
        if (std::system((command + " <" + words + " >/dev/null").c_str()) != 0)
            std::abort();
    const auto steps = static_cast<double>(state.iterations()) * (kSteps + 1);
    state.counters["step"] = benchmark::Counter(steps, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    std::filesystem::remove(words);
}

} // namespace

BENCHMARK_CAPTURE(Run, Words, "", TOOL_PATH)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, Script, "cmd> ", SCRIPT_PATH " /dev/stdin " TOOL_PATH)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
