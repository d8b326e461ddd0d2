// The benchmarks of the library's hot paths, each beside its baseline; the
// table at the end gives their ratios. Google Benchmark's own flags may be
// given and override the defaults below.

#include "BenchCases.h"
#include "BenchTable.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

int main(int argc, char** argv)
{
    // Repetitions interleaved at random, so that a case and its baseline
    // share whatever load the machine has while they run.
    std::vector<std::string> defaults = {
        "--benchmark_repetitions=9",
        "--benchmark_enable_random_interleaving=true",
        "--benchmark_min_time=0.3",
    };
    std::vector<char*> args{argv[0]};
    for (std::string& flag : defaults)
        args.push_back(flag.data());
    for (int i = 1; i < argc; ++i)
        args.push_back(argv[i]);
    int count = static_cast<int>(args.size());
    args.push_back(nullptr);

    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 1;
    RegisterOpenCases();
    RegisterImageCases();
    RegisterRepairCases();
    RegisterForceVolumeCases();
    BenchTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
    return 0;
}
