#!/bin/sh
# Builds a small host outside the tree against the installed library, the
# way its kind of project would, and runs it on a sample:
#   cmake       a CMake project that finds the package and links
#               DataSourceDll::DataSourceDll (consumer/);
#   pkg-config  one cc line with what pkg-config says (pkg_config_host.c).
# EXTRA_FLAGS is empty but for a sanitizer build, whose library needs its
# runtime in the host too.
# usage: build_host.sh cmake|pkg-config PREFIX WORK_DIR SAMPLE [EXTRA_FLAGS]
set -eu
how=$1
prefix=$2
work=$3
sample=$4
flags=${5:-}
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work"
case $how in
  cmake)
    cmake -S "$here/consumer" -B "$work" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release \
      -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$flags" >"$work/configure.log" 2>&1 \
      || { cat "$work/configure.log"; exit 1; }
    cmake --build "$work" >"$work/build.log" 2>&1 || { cat "$work/build.log"; exit 1; }
    "$work/consumer" "$sample"
    ;;
  pkg-config)
    libdir=$(cd "$(dirname "$(find "$prefix" -name datasourcedll.pc | head -n 1)")/.." && pwd)
    export PKG_CONFIG_PATH="$libdir/pkgconfig" LD_LIBRARY_PATH="$libdir"
    cd "$work"
    cp "$here/pkg_config_host.c" prog.c
    # shellcheck disable=SC2046,SC2086
    cc $(pkg-config --cflags --libs datasourcedll) prog.c $flags -o prog
    ./prog "$sample"
    ;;
  *)
    echo "build_host.sh: cmake or pkg-config, not $how" >&2
    exit 2
    ;;
esac
