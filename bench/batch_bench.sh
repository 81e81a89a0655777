#!/usr/bin/env bash
# Batch benchmark of rib2zel: converts a folder of generated RIB files with
# --jobs 1 and with --jobs 2 (or --jobs N) and prints the median wall time,
# MB/s and CPU time of each, and how much faster the parallel batch is. See
# bench/README.md.
set -euo pipefail

usage() {
  cat <<'TEXT'
Usage: bench/batch_bench.sh [--files N] [--size-mb N] [--jobs N] [--runs N] [--build DIR]
  --files N    RIB files in the batch (default 40)
  --size-mb N  size of each file in MB (default 5)
  --jobs N     the parallel case's --jobs (default 2)
  --runs N     timed runs per case, alternating; the median is shown (default 3)
  --build DIR  build directory holding rib2zel and runstat (default build/); both
               are built there first
TEXT
}

repo=$(cd "$(dirname "$0")/.." && pwd)
files=40
size=5
jobs=2
runs=3
build=$repo/build
while [ $# -gt 0 ]; do
  case "$1" in
    --files) files=$2; shift 2 ;;
    --size-mb) size=$2; shift 2 ;;
    --jobs) jobs=$2; shift 2 ;;
    --runs) runs=$2; shift 2 ;;
    --build) build=$2; shift 2 ;;
    -h|--help) usage; exit 0 ;;
    *) echo "batch_bench: unknown argument '$1'" >&2; usage >&2; exit 2 ;;
  esac
done
script=batch_bench
source "$repo/bench/common.sh"

# --- build -------------------------------------------------------------------
build_targets rib2zel runstat
rib2zel=$(find_program rib2zel)
runstat=$(find_program runstat)
if [ -z "$rib2zel" ] || [ -z "$runstat" ]; then
  echo "batch_bench: rib2zel or runstat was not built in $build" >&2
  exit 2
fi

# --- workload: one file per frame, each from its own seed -----------------------
work=$build/bench-work/batch-${files}x${size}mb
mkdir -p "$work/frames"
for i in $(seq "$files"); do
  frame=$work/frames/frame.$(printf '%04d' "$i").rib
  if [ ! -s "$frame" ]; then
    python3 "$generator" "$frame" --size-mb "$size" --seed "$i" >/dev/null 2>&1
  fi
done
bytes=$(cat "$work"/frames/*.rib | wc -c)  # also brings the files into the page cache

# --- measuring -----------------------------------------------------------------
failed=0
median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
run_once() {  # jobs
  local seconds rss_kb status cpu
  rm -rf "$work/out-$1"
  read -r seconds rss_kb status cpu < <("$runstat" "$work/stderr.txt" \
    "$rib2zel" -q --jobs "$1" --output-dir "$work/out-$1" "$work/frames")
  if [ "$status" -ne 0 ]; then
    echo "batch_bench: the batch with --jobs $1 exited with status $status:" >&2
    head -n 5 "$work/stderr.txt" >&2
    failed=1
  fi
  echo "$seconds" >>"$work/wall-$1.txt"
  echo "$cpu" >>"$work/cpu-$1.txt"
}
rm -f "$work"/wall-*.txt "$work"/cpu-*.txt
for _ in $(seq "$runs"); do
  run_once 1
  run_once "$jobs"
done

printf '%-10s %8s %10s %10s %12s\n' "case" "MB" "median s" "MB/s" "median cpu"
for j in 1 "$jobs"; do
  wall=$(median <"$work/wall-$j.txt")
  cpu=$(median <"$work/cpu-$j.txt")
  awk -v j="$j" -v b="$bytes" -v s="$wall" -v c="$cpu" 'BEGIN {
    printf "%-10s %8.1f %10.3f %10.1f %12.3f\n", "--jobs " j, b / 1e6, s, b / 1e6 / s, c }'
done
one=$(median <"$work/wall-1.txt")
many=$(median <"$work/wall-$jobs.txt")
awk -v f="$files" -v a="$one" -v b="$many" -v j="$jobs" 'BEGIN {
  printf "%d files; --jobs %d is %.2f times as fast as --jobs 1 (wall time)\n", f, j, a / b }'

# Both batches convert the same files, so they must write the same scene files.
if ! diff -r -q "$work/out-1" "$work/out-$jobs" >/dev/null; then
  echo "batch_bench: --jobs 1 and --jobs $jobs wrote different scene files" >&2
  failed=1
fi
rm -rf "$work/out-1" "$work/out-$jobs" "$work/stderr.txt" "$work"/wall-*.txt "$work"/cpu-*.txt
exit "$failed"
