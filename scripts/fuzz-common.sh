# Sourced by the fuzz scripts: the clang build of the libFuzzer targets in
# build/fuzz, and the list of targets to run.
fuzz_dir=build/fuzz

# Configures and builds every target; exit status 2 when that fails.
fuzz_build() {
  mkdir -p build
  CC=clang CXX=clang++ cmake -S . -B "$fuzz_dir" -G Ninja -DDS_FUZZ=ON -DCMAKE_BUILD_TYPE=Debug \
    >"$fuzz_dir.configure.log" 2>&1 \
    || { cat "$fuzz_dir.configure.log"; echo "== fuzz build failed"; return 2; }
  cmake --build "$fuzz_dir" -j "$(nproc)" || { echo "== fuzz build failed"; return 2; }
}

# The targets named in the arguments, or every folder under fuzz/.
fuzz_targets() {
  targets=("$@")
  if [ ${#targets[@]} -eq 0 ]; then
    for t in fuzz/*/; do targets+=("$(basename "$t")"); done
  fi
}
