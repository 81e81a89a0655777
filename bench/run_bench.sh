#!/usr/bin/env bash
# Throughput benchmark of rib2zel: generates the workload scene (ASCII RIB) and
# its binary twin, converts each a few times end to end and in parse-only mode,
# and prints the median wall time, MB/s, requests per second, peak resident
# memory and median CPU time of each (measured by tools/runstat). See
# bench/README.md.
set -euo pipefail

usage() {
  cat <<'TEXT'
Usage: bench/run_bench.sh [--size-mb N] [--runs N] [--build DIR] [--work DIR] [--keep] [--extended]
  --size-mb N  size of the generated ASCII workload in MB (default 200)
  --runs N     timed runs per case; the median is shown (default 3)
  --build DIR  build directory holding rib2zel, rib2bin and runstat (default
               build/); the three targets are built there first
  --work DIR   where the workload and the scene files go (default DIR/bench-work)
  --keep       keep the scene files written by the last runs
  --extended   convert with the extended reader (rib2zel --extended)
TEXT
}

repo=$(cd "$(dirname "$0")/.." && pwd)
size=200
runs=3
build=$repo/build
work=""
keep=0
reader=()
while [ $# -gt 0 ]; do
  case "$1" in
    --size-mb) size=$2; shift 2 ;;
    --runs) runs=$2; shift 2 ;;
    --build) build=$2; shift 2 ;;
    --work) work=$2; shift 2 ;;
    --keep) keep=1; shift ;;
    --extended) reader=(--extended); shift ;;
    -h|--help) usage; exit 0 ;;
    *) echo "run_bench: unknown argument '$1'" >&2; usage >&2; exit 2 ;;
  esac
done
work=${work:-$build/bench-work}
script=run_bench
source "$repo/bench/common.sh"

# --- build -------------------------------------------------------------------
build_targets rib2zel rib2bin runstat
rib2zel=$(find_program rib2zel)
rib2bin=$(find_program rib2bin)
runstat=$(find_program runstat)
if [ -z "$rib2zel" ] || [ -z "$rib2bin" ] || [ -z "$runstat" ]; then
  echo "run_bench: rib2zel, rib2bin or runstat was not built in $build" >&2
  exit 2
fi

# --- workload ----------------------------------------------------------------
mkdir -p "$work"
ascii=$work/workload-${size}mb.rib
binary=$work/workload-${size}mb.ribb
stats=$work/workload-${size}mb.stats
if [ ! -s "$ascii" ]; then
  echo "Generating $ascii ..."
  python3 "$generator" "$ascii" --size-mb "$size" --seed 1
  rm -f "$binary" "$stats"
fi
if [ ! -s "$binary" ] || [ ! -s "$stats" ] || [ "$rib2bin" -nt "$binary" ]; then
  "$rib2bin" --stats "$ascii" "$binary" 2>"$stats"
fi
requests=$(awk '{ print $3 }' "$stats")

# --- measuring -----------------------------------------------------------------
failed=0
# The workload's Displacement requests name an undeclared "Km", which the
# classic reader drops without a word and the extended reader reports (exit 1).
allowed=0
[ ${#reader[@]} -gt 0 ] && allowed=1
# Times one command: sets `seconds` (wall), `rss_kb` (peak resident set) and
# `cpu` (user + system seconds).
time_once() {
  local status
  read -r seconds rss_kb status cpu < <("$runstat" "$work/stderr.txt" "$@")
  if [ "$status" -gt "$allowed" ]; then
    echo "run_bench: '$*' exited with status $status:" >&2
    head -n 5 "$work/stderr.txt" >&2
    failed=1
  fi
}

median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

printf '%-22s %10s %10s %10s %12s %10s %10s\n' "case" "MB" "median s" "MB/s" "requests/s" \
  "peak MB" "median cpu"
report() {  # label, input file, times file, largest rss in KB, cpu times file
  local mb med cpumed
  mb=$(awk -v b="$(stat -c %s "$2")" 'BEGIN { printf "%.1f", b / 1e6 }')
  med=$(median <"$3")
  cpumed=$(median <"$5")
  awk -v l="$1" -v mb="$mb" -v s="$med" -v r="$requests" -v k="$4" -v c="$cpumed" 'BEGIN {
    rps = l ~ /^cat/ ? "-" : sprintf("%.0f", r / s)  # cat reads no requests
    printf "%-22s %10.1f %10.3f %10.1f %12s %10.1f %10.3f\n", l, mb, s, mb / s, rps, k / 1024, c }'
}

run_case() {  # label, input, command...
  local label=$1 input=$2
  shift 2
  local times=$work/times.txt cpus=$work/cpus.txt peak=0
  : >"$times"
  : >"$cpus"
  for _ in $(seq "$runs"); do
    time_once "$@"
    echo "$seconds" >>"$times"
    echo "$cpu" >>"$cpus"
    if [ "$rss_kb" -gt "$peak" ]; then peak=$rss_kb; fi
  done
  report "$label" "$input" "$times" "$peak" "$cpus"
}

# `cat` first: it also brings both files into the page cache.
run_case "cat ASCII" "$ascii" cat "$ascii"
run_case "cat binary" "$binary" cat "$binary"
run_case "rib2zel ASCII" "$ascii" "$rib2zel" "${reader[@]}" -q "$ascii" "$work/ascii.zel"
run_case "rib2zel binary" "$binary" "$rib2zel" "${reader[@]}" -q "$binary" "$work/binary.zel"
if "$rib2zel" --help 2>/dev/null | grep -q -- '--parse-only'; then
  run_case "parse-only ASCII" "$ascii" "$rib2zel" "${reader[@]}" -q --parse-only "$ascii"
  run_case "parse-only binary" "$binary" "$rib2zel" "${reader[@]}" -q --parse-only "$binary"
else
  echo "parse-only: skipped (this rib2zel has no --parse-only)"
fi
echo "requests: $requests; ZEL written: $(stat -c %s "$work/ascii.zel") bytes"

# Both encodings describe the same scene, so they must give the same file.
if ! cmp -s "$work/ascii.zel" "$work/binary.zel"; then
  echo "run_bench: the ASCII and the binary workload gave different scene files" >&2
  failed=1
fi
if [ "$keep" -eq 0 ]; then
  rm -f "$work/ascii.zel" "$work/binary.zel"
fi
rm -f "$work/stderr.txt" "$work/times.txt" "$work/cpus.txt"
exit "$failed"
