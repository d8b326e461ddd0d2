#!/usr/bin/env bash
# Leaks and memory errors under valgrind. Not part of scripts/test.sh: the
# runs take minutes. Builds dstool, samplegen and openloop in build/valgrind
# (RelWithDebInfo: optimised as released, with the line numbers valgrind's
# reports need; valgrind cannot run the sanitizer build), writes the samples
# of every family into build/valgrind/samples, and runs
#   valgrind --leak-check=full --error-exitcode=1 --errors-for-leak-kinds=definite
# over "dstool info" on every sample and over openloop's opens and closes of
# all of them and of a file no family claims. One line per run: its errors
# and the bytes definitely lost; valgrind's own report of each run is kept in
# build/valgrind/reports/. Exit status 0 when every run is clean.
#
#   scripts/valgrind.sh            1000 opens in the loop
#   DS_OPENS=200 scripts/valgrind.sh
set -uo pipefail
cd "$(dirname "$0")/.."
./scripts/bootstrap.sh || exit 1

dir=build/valgrind
jobs=${DS_JOBS:-2}
opens=${DS_OPENS:-1000}

mkdir -p build
echo "== building $dir"
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DDS_SANITIZE=OFF -DDS_TSAN=OFF \
  >"$dir.configure.log" 2>&1 || { cat "$dir.configure.log"; exit 1; }
cmake --build "$dir" --target dstool samplegen openloop -j "$jobs" || exit 1

samples=$dir/samples
reports=$dir/reports
rm -rf "$samples" "$reports"
mkdir -p "$reports"
"$dir/tools/samplegen/samplegen" "$samples" >/dev/null || { echo "samplegen failed"; exit 1; }

status=0

# run NAME COMMAND...: one valgrind run, told in one line.
run() {
  local name=$1; shift
  local report=$reports/${name// /_}.txt
  valgrind --leak-check=full --error-exitcode=1 --errors-for-leak-kinds=definite \
    --log-file="$report" "$@" >"${report%.txt}.out" 2>&1
  local rc=$?
  local errors lost
  errors=$(sed -nE 's/.*ERROR SUMMARY: ([0-9,]+) errors.*/\1/p' "$report" | tail -n 1 | tr -d ,)
  lost=$(sed -nE 's/.*definitely lost: ([0-9,]+) bytes.*/\1/p' "$report" | tail -n 1 | tr -d ,)
  # A run that freed everything prints no leak lines at all.
  [ -n "$lost" ] || lost=0
  [ -n "$errors" ] || errors="?"
  local verdict=clean
  if [ "$rc" -ne 0 ] || [ "$errors" != 0 ] || [ "$lost" != 0 ]; then
    verdict="NOT CLEAN (exit $rc, see $report)"
    status=1
  fi
  printf '%-34s %s errors, %s bytes definitely lost: %s\n' "$name" "$errors" "$lost" "$verdict"
}

echo "== valgrind"
files=()
for f in "$samples"/*; do
  files+=("$f")
  run "info $(basename "$f")" "$dir/tools/dstool/dstool" info "$f"
done
run "openloop $opens opens" "$dir/tools/openloop/openloop" --count "$opens" "$reports/unclaimed.qdf" "${files[@]}"
exit $status
