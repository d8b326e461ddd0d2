#!/usr/bin/env bash
# A fuzzing campaign: builds the libFuzzer targets (ASan + UBSan) and runs
# each for SECONDS (600 unless told) over a working corpus that starts from
# its committed seeds and is kept in build/fuzz-campaign/<target>/corpus, so a
# second campaign goes on where the first stopped. Prints one line per
# target: executions, seconds, coverage (edges and features), corpus size,
# findings. Crashes are written to build/fuzz-campaign/<target>/.
#   scripts/fuzz-campaign.sh [SECONDS] [TARGET...]
set -uo pipefail
cd "$(dirname "$0")/.."
source scripts/fuzz-common.sh
seconds=${1:-600}; shift || true
dir=$fuzz_dir
out=build/fuzz-campaign
mkdir -p "$out"
fuzz_build || exit 2

fuzz_targets "$@"
status=0
printf '%-18s %12s %8s %8s %9s %8s %s\n' target executions seconds edges features corpus findings
for t in "${targets[@]}"; do
  exe="$dir/fuzz/fuzz_$t"
  [ -x "$exe" ] || continue
  work="$out/$t"
  mkdir -p "$work/corpus"
  cp -rn "fuzz/$t/corpus/." "$work/corpus/"
  start=$SECONDS
  ASAN_OPTIONS=detect_leaks=1 "$exe" -max_total_time="$seconds" -rss_limit_mb=2048 -max_len=65536 \
    -artifact_prefix="$work/" -print_final_stats=1 "$work/corpus" >"$work/log" 2>&1
  rc=$?
  execs=$(grep -oE 'stat::number_of_executed_units: *[0-9]+' "$work/log" | grep -oE '[0-9]+$' | tail -1)
  last=$(grep -E '^#[0-9]+' "$work/log" | tail -1)
  edges=$(grep -oE 'cov: [0-9]+' <<<"$last" | grep -oE '[0-9]+')
  features=$(grep -oE 'ft: [0-9]+' <<<"$last" | grep -oE '[0-9]+')
  corpus=$(ls "$work/corpus" | wc -l)
  findings=$(ls "$work" | grep -cE '^(crash|leak|timeout|oom|slow-unit)-' || true)
  [ "$rc" -eq 0 ] || status=1
  printf '%-18s %12s %8s %8s %9s %8s %s\n' "$t" "${execs:-?}" "$((SECONDS - start))" "${edges:-?}" \
    "${features:-?}" "$corpus" "$findings$([ "$rc" -eq 0 ] || echo " (exit $rc, see $work/log)")"
done
exit $status
