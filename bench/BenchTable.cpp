#include "BenchTable.h"

#include "BenchPairs.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace {

// The median of the repetitions: the repetitions of all cases are
// interleaved at random, so a burst of load from elsewhere falls on a case
// and its baseline alike and moves the median of neither far.
double Median(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const std::size_t mid = values.size() / 2;
    return values.size() % 2 ? values[mid] : (values[mid - 1] + values[mid]) / 2.0;
}

bool ManualTime(const std::string& name)
{
    for (const BenchPair& pair : BenchPairs::All()) {
        if (name == pair.name || name == BenchPairs::BaselineOf(pair.name))
            return pair.manualTime;
    }
    return false;
}

std::string Milliseconds(double ms)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f ms", ms);
    return text;
}

}  // namespace

void BenchTable::ReportRuns(const std::vector<Run>& runs)
{
    std::vector<Run> shown;
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Aggregate || run.repetitions <= 1)
            shown.push_back(run);
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const std::string& name = run.run_name.function_name;
        const double inUnit = ManualTime(name) ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        times_[name].push_back(inUnit * benchmark::GetTimeUnitMultiplier(benchmark::kMillisecond) /
                               benchmark::GetTimeUnitMultiplier(run.time_unit));
    }
    // The repetitions themselves would bury the aggregates on the console.
    if (!shown.empty())
        ConsoleReporter::ReportRuns(shown);
}

void BenchTable::Finalize()
{
    ConsoleReporter::Finalize();
    std::ostream& out = GetOutputStream();
    out << "\nMedian of the repetitions; CPU time of the process, or of the measured part alone where the\n"
           "iteration restores its input.\n\n";
    PrintHeader(out);
    for (const BenchPair& pair : BenchPairs::All()) {
        const auto found = times_.find(pair.name);
        const auto base = times_.find(BenchPairs::BaselineOf(pair.name));
        if (found == times_.end() || base == times_.end())
            continue;
        const double caseTime = Median(found->second);
        const double baseTime = Median(base->second);
        PrintLine(out, pair.name, Milliseconds(caseTime), Milliseconds(baseTime) + "  " + pair.baseline,
                  baseTime > 0.0 ? caseTime / baseTime : 0.0, pair.goal);
    }
}

void BenchTable::PrintHeader(std::ostream& out)
{
    char line[256];
    std::snprintf(line, sizeof line, "%-26s %14s %7s %6s %-6s %s\n", "case", "time", "ratio", "goal", "", "baseline");
    out << line;
}

void BenchTable::PrintLine(std::ostream& out, const std::string& name, const std::string& value,
                           const std::string& baseline, double ratio, double goal)
{
    char line[512];
    std::snprintf(line, sizeof line, "%-26s %14s %6.2fx %5.2fx %-6s %s\n", name.c_str(), value.c_str(), ratio, goal,
                  ratio <= goal ? "met" : "MISSED", baseline.c_str());
    out << line;
}
