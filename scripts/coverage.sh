#!/usr/bin/env bash
# Line and branch coverage of the converter's own code (not of the tests,
# fuzz targets, benchmarks or tools) by the whole test suite. Builds into
# build-coverage/ (COVERAGE_BUILD_DIR chooses another folder) and prints the
# two figures; a full report goes to build-coverage/coverage.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${COVERAGE_BUILD_DIR:-build-coverage}

if ! command -v gcovr >/dev/null; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends gcovr
fi

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=--coverage \
  -DCMAKE_EXE_LINKER_FLAGS=--coverage -DRZ_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
find "$build" -name '*.gcda' -delete
QT_QPA_PLATFORM=offscreen ctest --test-dir "$build" -j"$(nproc)" >/dev/null || {
  echo "coverage: the test suite failed; the figures would mean nothing" >&2
  exit 1
}

filters=(--root . --object-directory "$build"
  --filter 'foundation/' --filter 'rib/' --filter 'interface/' --filter 'zel/' --filter 'frontend/'
  --exclude-throw-branches --exclude-unreachable-branches)
# gcovr deletes the file it is to write to once it has proved it writable,
# so it is never given a device such as /dev/null.
gcovr "${filters[@]}" --print-summary --txt "$build/coverage.txt" | grep -E '^(lines|branches):'
