#!/usr/bin/env bash
# Installs what the build needs on Debian 12 (skipped when all is present) and
# builds into build/.
set -euo pipefail
cd "$(dirname "$0")/.."

pkgs=(cmake g++ make libgtest-dev zlib1g-dev libsimdjson-dev libpng-dev qt6-base-dev clang libclang-rt-14-dev
      clang-format python3)
missing=()
for p in "${pkgs[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"
