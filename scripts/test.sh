#!/usr/bin/env bash
# Sets everything up and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure -j"$(nproc)"
