#!/usr/bin/env bash
# The main job: installs what is missing, builds the library and its tools
# (Release, in build/release), makes the sample files of every family and
# kind in samples/, and shows two of them through dstool: the description and
# a picture of the grating's topography, and a plot of a force curve.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

./scripts/bootstrap.sh

jobs=${DS_JOBS:-$(nproc)}
mkdir -p build
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release >build/release.configure.log 2>&1 \
  || { cat build/release.configure.log; exit 1; }
cmake --build build/release --target DataSourceDll dstool samplegen -j "$jobs"

dstool=build/release/tools/dstool/dstool
echo
echo "== samples"
build/release/tools/samplegen/samplegen samples

echo
echo "== dstool info samples/grating.tef"
"$dstool" info samples/grating.tef

echo
echo "== dstool export samples/grating.tef --channel 0 --png samples/topography.png"
"$dstool" export samples/grating.tef --channel 0 --png samples/topography.png

echo
echo "== dstool curve samples/quillon_force.qdf --png samples/force_curve.png"
"$dstool" curve samples/quillon_force.qdf --png samples/force_curve.png

echo
echo "The topography of the grating is in $root/samples/topography.png"
echo "The force curve of the Quillon force sample is in $root/samples/force_curve.png"
