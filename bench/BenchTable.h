#pragma once

// A console reporter that also keeps the time of every repetition and, at
// the end, prints one line per case: its time, its baseline's time from the
// same run, their ratio and the goal for it.

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

class BenchTable : public benchmark::ConsoleReporter {
public:
    // Plain text: the table is read in logs as often as on a terminal.
    BenchTable() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    // One line of the table, in the same columns, for figures measured
    // outside Google Benchmark (the peak memory program).
    static void PrintHeader(std::ostream& out);
    static void PrintLine(std::ostream& out, const std::string& name, const std::string& value,
                          const std::string& baseline, double ratio, double goal);

private:
    // milliseconds of each repetition, by benchmark name
    std::map<std::string, std::vector<double>> times_;
};
