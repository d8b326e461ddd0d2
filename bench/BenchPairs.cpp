#include "BenchPairs.h"

#include <utility>

namespace {

std::vector<BenchPair>& Registered()
{
    static std::vector<BenchPair> pairs;
    return pairs;
}

void Register(const std::string& name, BenchPairs::Body body, bool manualTime)
{
    benchmark::internal::Benchmark* b = benchmark::RegisterBenchmark(name.c_str(), std::move(body));
    b->Unit(benchmark::kMillisecond);
    if (manualTime)
        b->UseManualTime();
}

}  // namespace

void BenchPairs::Add(const BenchPair& pair, Body caseBody, Body baselineBody)
{
    Registered().push_back(pair);
    Register(pair.name, std::move(caseBody), pair.manualTime);
    Register(BaselineOf(pair.name), std::move(baselineBody), pair.manualTime);
}

const std::vector<BenchPair>& BenchPairs::All() { return Registered(); }
