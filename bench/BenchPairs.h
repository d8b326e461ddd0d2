#pragma once

// Each case is measured beside its baseline, the least work that the same
// result physically needs, in the same run; a case is judged by the ratio of
// the two, never by its own time, since the machines are shared and noisy.

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

struct BenchPair {
    std::string name;
    // what the baseline does, for the table
    std::string baseline;
    // the largest ratio of case over baseline that the case may take
    double goal = 1.0;
    // times taken by the body itself, in thread CPU time, where the
    // iteration also restores its input
    bool manualTime = false;
};

class BenchPairs {
public:
    using Body = std::function<void(benchmark::State&)>;

    // Registers the case and its baseline as two benchmarks.
    static void Add(const BenchPair& pair, Body caseBody, Body baselineBody);
    static const std::vector<BenchPair>& All();
    // The benchmark name of a case's baseline.
    static std::string BaselineOf(const std::string& name) { return name + "/baseline"; }
};
