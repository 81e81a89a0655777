#!/usr/bin/env bash
# CI smoke test of the benchmarks. The throughput benchmark runs a small
# workload, its figures printed but not judged: it fails only if a conversion
# fails or the ASCII and binary workloads give different scene files. The
# linear-time benchmark then fails when some work grows much faster than the
# input, and the memory benchmark when a hostile input costs more memory than
# its bound (both use the rib2zel that run_bench.sh has built in build/).
set -euo pipefail
cd "$(dirname "$0")/.."
bash bench/run_bench.sh --size-mb 5 --runs 3
python3 bench/linear_bench.py
python3 bench/hostile_memory.py
