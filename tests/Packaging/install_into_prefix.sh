#!/bin/sh
# Installs the build tree into a fresh prefix and checks what a host finds
# there: the library with its SONAME and version, both headers, dstool, the
# CMake package and the pkg-config file.
# usage: install_into_prefix.sh BUILD_DIR PREFIX
set -eu
build=$1
prefix=$2
rm -rf "$prefix"
cmake --install "$build" --prefix "$prefix" >/dev/null

fail() { echo "install: $*" >&2; exit 1; }
lib=$(find "$prefix" -name 'libDataSourceDll.so.*.*.*' -type f | head -n 1)
[ -n "$lib" ] || fail "no versioned library under $prefix"
libdir=$(dirname "$lib")
soname=$(readelf -d "$lib" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
[ "$soname" = "libDataSourceDll.so.1" ] || fail "SONAME is '$soname'"
[ -L "$libdir/libDataSourceDll.so.1" ] || fail "no SONAME link"
[ -L "$libdir/libDataSourceDll.so" ] || fail "no link for the linker"
for f in include/DataSourceDll/DataSourceDll.h include/DataSourceDll/DataSourceDllClass.h bin/dstool; do
  [ -f "$prefix/$f" ] || fail "missing $f"
done
for f in DataSourceDllConfig.cmake DataSourceDllConfigVersion.cmake DataSourceDllTargets.cmake; do
  [ -f "$libdir/cmake/DataSourceDll/$f" ] || fail "missing $f"
done
[ -f "$libdir/pkgconfig/datasourcedll.pc" ] || fail "missing datasourcedll.pc"
# The headers stand alone: nothing of the source tree is included.
if grep -h '#include "' "$prefix"/include/DataSourceDll/*.h | grep -v '"DataSourceDll/DataSourceDll.h"'; then
  fail "an installed header includes a header that is not installed"
fi
# dstool finds the installed library by itself.
"$prefix/bin/dstool" --help >/dev/null 2>&1 || [ $? -ne 127 ] || fail "dstool does not start"
used=$(ldd "$prefix/bin/dstool" | awk '/libDataSourceDll/ { print $3 }')
[ -n "$used" ] && [ "$(realpath "$used")" = "$(realpath "$libdir/libDataSourceDll.so.1")" ] \
  || fail "dstool does not use the installed library but '$used'"
echo "installed into $prefix"
