#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for SECONDS over a copy
# of its seed corpus. Usage: scripts/fuzz.sh [SECONDS] [TARGET...]
set -uo pipefail
cd "$(dirname "$0")/.."
source scripts/fuzz-common.sh
seconds=${1:-20}; shift || true
dir=$fuzz_dir
fuzz_build || exit 2

fuzz_targets "$@"
status=0
for t in "${targets[@]}"; do
  exe="$dir/fuzz/fuzz_$t"
  [ -x "$exe" ] || continue
  work=$(mktemp -d)
  cp -r "fuzz/$t/corpus/." "$work/" 2>/dev/null || true
  echo "== fuzzing $t for ${seconds}s"
  if ! ASAN_OPTIONS=detect_leaks=1 "$exe" -max_total_time="$seconds" -rss_limit_mb=2048 \
       -max_len=65536 -artifact_prefix="$dir/$t-" -print_final_stats=1 "$work" 2>"$dir/$t.log"; then
    tail -n 60 "$dir/$t.log"; status=1
    echo "== fuzz target $t failed (log: $dir/$t.log)"
  else
    grep -E 'stat::number_of_executed_units' "$dir/$t.log" | sed "s/^/  $t /"
  fi
  rm -rf "$work"
done
exit $status
