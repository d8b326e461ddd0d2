#!/bin/sh
# The shared library shows the flat C functions, the additions and the
# DataSourceDll class, and nothing of the system's internals.
set -eu
lib=$1
header=$2
syms=$(nm -D --defined-only "$lib" | awk '{print $3}')
missing=0
for name in $(grep -oE 'DataSourceDll[A-Za-z0-9]+\(' "$header" | tr -d '(' | sort -u); do
  if ! printf '%s\n' "$syms" | grep -qx "$name"; then
    echo "missing export: $name"; missing=1
  fi
done
# Everything else that is defined must belong to the class or the handle API.
extra=$(printf '%s\n' "$syms" | grep -vE '^(DataSourceDll[A-Za-z0-9]*|_ZN13DataSourceDll.*|_init|_fini|_edata|_end|__bss_start)$' || true)
if [ -n "$extra" ]; then
  echo "internal symbols exported:"; printf '%s\n' "$extra" | head -20; missing=1
fi
count=$(grep -cE '^DSDLL_API' "$header")
echo "$count C functions declared, all exported"
exit $missing
