#!/usr/bin/env bash
# The test command: installs what is missing, builds an optimised and a
# sanitizer configuration, runs the suite in both, runs the handles' thread
# test under ThreadSanitizer, and runs each fuzz target for a short bounded
# time when clang is present.
set -uo pipefail
cd "$(dirname "$0")/.."
./scripts/bootstrap.sh || exit 1

jobs=$(nproc)
summaries=()
passed=0
failed=0
status=0

configure_and_build() {
  local dir=$1; shift
  echo "== building $dir"
  cmake -S . -B "$dir" -G Ninja "$@" >"$dir.configure.log" 2>&1 \
    || { cat "$dir.configure.log"; return 1; }
  cmake --build "$dir" -j "$jobs"
}

run_suite() {
  local dir=$1 log
  log=$(mktemp)
  echo "== testing $dir"
  ctest --test-dir "$dir" -j "$jobs" --output-on-failure --timeout 600 2>&1 | tee "$log" | grep -vE '^ +(Start|[0-9]+/[0-9]+ Test) ' || true
  local line
  line=$(grep -E 'tests passed, [0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)
  if [ -z "$line" ]; then
    summaries+=("$dir: no test summary")
    status=1
  else
    summaries+=("$dir: $line")
    local total nfail
    total=$(sed -E 's/.*out of ([0-9]+).*/\1/' <<<"$line")
    nfail=$(sed -E 's/.* ([0-9]+) tests failed.*/\1/' <<<"$line")
    passed=$((passed + total - nfail))
    failed=$((failed + nfail))
    [ "$nfail" -eq 0 ] || status=1
    # Name the failures again where the end of a long log shows them.
    while IFS= read -r t; do summaries+=("  failed in $dir: $t"); done \
      < <(sed -n '/The following tests FAILED:/,$p' "$log" | grep -E '^[[:space:]]+[0-9]+ - ' | sed -E 's/^[[:space:]]+//')
  fi
  rm -f "$log"
}

mkdir -p build
if configure_and_build build/release -DCMAKE_BUILD_TYPE=Release; then
  run_suite build/release
else
  summaries+=("build/release: build failed"); status=1
fi
if configure_and_build build/asan -DDS_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug; then
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1 run_suite build/asan
else
  summaries+=("build/asan: build failed"); status=1
fi

# ThreadSanitizer over the one program that reads files from several threads
# at once (handles of different families): only test_Threads is built, on two
# jobs, to keep the whole run short.
echo "== building build/tsan (test_Threads only)"
tsan_start=$SECONDS
if cmake -S . -B build/tsan -G Ninja -DDS_TSAN=ON -DCMAKE_BUILD_TYPE=Debug -DDS_BUILD_TOOLS=OFF \
     >build/tsan.configure.log 2>&1 \
   && cmake --build build/tsan --target test_Threads -j 2; then
  echo "== testing build/tsan"
  mkdir -p build/tsan/tests/tmp
  if DS_TEST_TMP=build/tsan/tests/tmp TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1" \
       build/tsan/tests/test_Threads --gtest_brief=1; then
    summaries+=("build/tsan: test_Threads clean under ThreadSanitizer ($((SECONDS - tsan_start)) s with its build)")
  else
    summaries+=("build/tsan: test_Threads failed or ThreadSanitizer reported a race"); status=1
  fi
else
  cat build/tsan.configure.log
  summaries+=("build/tsan: build failed"); status=1
fi

if command -v clang++ >/dev/null 2>&1; then
  ./scripts/fuzz.sh "${DS_FUZZ_SECONDS:-20}"
  case $? in
    0) summaries+=("fuzz: all targets ran clean") ;;
    2) summaries+=("fuzz: the targets did not build"); status=1 ;;
    *) summaries+=("fuzz: a target failed"); status=1 ;;
  esac
fi

echo
echo "== summary"
for s in "${summaries[@]}"; do echo "$s"; done
echo "tests: $passed passed, $failed failed"
exit $status
