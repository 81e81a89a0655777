#!/usr/bin/env bash
# CI smoke test of the throughput benchmark: a small workload, figures printed
# but not judged. It fails only if a conversion fails or the ASCII and binary
# workloads give different scene files.
set -euo pipefail
cd "$(dirname "$0")/.."
bash bench/run_bench.sh --size-mb 5 --runs 3
# Processor time at two input sizes; it fails when some work grows faster
# than the input (run_bench.sh has built rib2zel in build/).
python3 bench/linear_bench.py
