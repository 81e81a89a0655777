#!/usr/bin/env bash
# Sets everything up and converts the bundled example scene with the command-line converter.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
mkdir -p out
./build/rib2zel examples/full_scene.rib out/full_scene.zel
echo "Wrote out/full_scene.zel ($(wc -l < out/full_scene.zel) records)"
