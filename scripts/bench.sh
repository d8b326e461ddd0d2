#!/usr/bin/env bash
# The benchmark command: builds the benchmarks optimised in build/bench, runs
# every case beside its baseline (both measured in the same run, their
# repetitions interleaved) and prints a table of their ratios, then the peak
# memory of opening a ".tef" file of 256 MiB as a multiple of its size. The
# sample files are made by the builders into a temporary folder ($TMPDIR or
# /tmp) and removed afterwards. Arguments go to the benchmark program, e.g.
#   ./scripts/bench.sh --benchmark_filter=tef --benchmark_repetitions=15
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/bootstrap.sh

dir=build/bench
mkdir -p build
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DDS_BUILD_BENCH=ON \
  -DDS_BUILD_TESTS=OFF -DDS_BUILD_TOOLS=OFF >"$dir.configure.log" 2>&1 \
  || { cat "$dir.configure.log"; exit 1; }
cmake --build "$dir" --target bench bench_tef_memory -j 2

# The memory figure first, in a process of its own, while nothing else of
# the run is in memory; it is printed under the table.
memory=$("$dir/bench/bench_tef_memory")
"$dir/bench/bench" --benchmark_color=false "$@"
echo "$memory"
