#!/bin/sh
# Takes every example of the getting-started page (the fenced block after a
# line "<!-- example: LANGUAGE -->") and builds and runs it as the page says,
# against the installed package and a sample. Fails when an example is
# missing, does not build, or does not run.
# usage: check_getting_started.sh PAGE PREFIX WORK_DIR SAMPLE PYTHON_DIR [EXTRA_FLAGS [PRELOAD]]
set -eu
page=$1
prefix=$2
work=$3
sample=$4
python_dir=$5
flags=${6:-}
preload=${7:-}

rm -rf "$work"
mkdir -p "$work/c" "$work/cpp" "$work/python"
# Each example goes to the file its language is built from.
awk -v dir="$work" '
  /^<!-- example: [a-z]+ -->$/ { language = $3; next }
  language != "" && /^```/ && !inside {
    inside = 1
    if (language == "c") file = "c/first.c"
    else if (language == "cpp") file = "cpp/main.cpp"
    else if (language == "cmake") file = "cpp/CMakeLists.txt"
    else if (language == "python") file = "python/first.py"
    else { print "unknown example language " language > "/dev/stderr"; exit 1 }
    target = dir "/" file
    printf "" > target
    next
  }
  inside && /^```/ { inside = 0; language = ""; close(target); next }
  inside { print >> target }
' "$page"
for f in c/first.c cpp/main.cpp cpp/CMakeLists.txt python/first.py; do
  [ -s "$work/$f" ] || { echo "getting started: no example for $f" >&2; exit 1; }
done

libdir=$(dirname "$(find "$prefix" -name datasourcedll.pc | head -n 1)")/..
libdir=$(cd "$libdir" && pwd)
export PKG_CONFIG_PATH="$libdir/pkgconfig" LD_LIBRARY_PATH="$libdir"

echo "== C"
cd "$work/c"
# shellcheck disable=SC2046,SC2086
cc $(pkg-config --cflags --libs datasourcedll) first.c $flags -o first
./first "$sample"

echo "== C++"
cd "$work/cpp"
cmake -S . -B build -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$flags" \
  -DCMAKE_EXE_LINKER_FLAGS="$flags" >build.log 2>&1 || { cat build.log; exit 1; }
cmake --build build >>build.log 2>&1 || { cat build.log; exit 1; }
./build/first "$sample"

echo "== Python"
cd "$work/python"
# With a sanitizer preloaded, the interpreter's own memory at its exit is no
# leak of the library's.
if [ -n "$preload" ]; then
  export LD_PRELOAD="$preload" ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0"
fi
PYTHONPATH="$python_dir" DATASOURCE_LIBRARY="$libdir/libDataSourceDll.so.1" /usr/bin/python3 first.py "$sample"
