#!/usr/bin/env bash
# Installs, from Debian's packages and only when missing, what building and
# testing need. Safe to run again: an installed package is left alone.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config ccache
  libboost-dev libgtest-dev libgmock-dev libbenchmark-dev libpng-dev
  python3 python3-numpy valgrind
)

installed() {
  dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q "install ok installed"
}

missing=()
for p in "${packages[@]}"; do
  installed "$p" || missing+=("$p")
done

if ((${#missing[@]} == 0)); then
  exit 0
fi

echo "bootstrap: installing ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
