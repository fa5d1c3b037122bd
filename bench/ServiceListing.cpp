// The guide listing of the TPMS menu (command 18, row 1) in the real tool, with more and more services. The time per
// service must not grow with their number, and the tool's memory must not grow from one listing to the next.
#include "support/Tool.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{

std::string Scenario(int services)
{
    std::string text;
    for (int i = 1; i <= services; ++i) {
        const std::string number = std::to_string(i);
        text +=
            "[service " + number + "]\n1=2\n3=0\n4=506000\n12=" + number + "\n13=" + number + "\n14=1\n23=1\n25=0\n";
        if (i % 2 == 0)
            text += "title=Programme " + number + "\n";
    }
    return text;
}

double ResidentKilobytes(pid_t pid)
{
    std::ifstream file("/proc/" + std::to_string(pid) + "/statm");
    double size = 0, resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

void ServiceListing(benchmark::State& state)
{
    const auto services = static_cast<int>(state.range(0));
    Tool tool(Scenario(services), {{"TVS_TRACE", ""}});
    const std::string end = "\tno data in " + std::to_string(services - services / 2) + " programs\n";
    const auto list = [&] {
        tool.Type("1\n");
        tool.WaitFor(end);
    };
    tool.Type("6\n18\n");
    list();
    const double before = ResidentKilobytes(tool.Pid());
    for (auto _ : state)
        list();
    state.counters["growth_kB"] = ResidentKilobytes(tool.Pid()) - before;
    state.counters["per_service"] =
        benchmark::Counter(services, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    tool.Finish();
}
BENCHMARK(ServiceListing)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
