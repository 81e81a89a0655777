#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each on its corpus for a while
# (FUZZ_SECONDS, default 60). Any crash, leak, timeout or out-of-memory fails
# the script; the input that caused it is left in the build folder and its
# report is printed whole. FUZZ_BUILD_DIR chooses the build folder,
# FUZZ_MAX_LEN the largest input (libFuzzer's default when empty: the largest
# seed), FUZZ_SEEDS a folder with more seeds per target (FUZZ_SEEDS/<target>).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${FUZZ_SECONDS:-60}
build=${FUZZ_BUILD_DIR:-build-fuzz}
targets=(scanner conversion extended gzip preview)

CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DRZ_FUZZ=ON \
  -DRZ_TESTS=OFF -DRZ_GUI=OFF -DRZ_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target "${targets[@]/%/_fuzzer}"

status=0
for target in "${targets[@]}"; do
  # New inputs go to the first folder, which is the build's own; the corpus
  # and the regressions in the repository are only read.
  work=$build/corpus-$target
  log=$build/fuzz-$target.log
  mkdir -p "$work"
  seeds=fuzz/corpus/$target
  extra=()
  # The preview draws the scene files that the conversion fuzzers' inputs convert to.
  if [[ $target == preview ]]; then
    seeds=fuzz/corpus/conversion
    extra+=(fuzz/corpus/extended)
  fi
  if [[ -n ${FUZZ_MAX_LEN:-} ]]; then extra+=(-max_len="$FUZZ_MAX_LEN"); fi
  if [[ -n ${FUZZ_SEEDS:-} && -d $FUZZ_SEEDS/$target ]]; then extra+=("$FUZZ_SEEDS/$target"); fi
  echo "== fuzzing $target for ${seconds}s"
  if ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    "./$build/fuzz/${target}_fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -dict=fuzz/rib.dict -artifact_prefix="$build/$target-" -print_final_stats=1 \
    "$work" "$seeds" fuzz/regressions "${extra[@]}" >"$log" 2>&1; then
    grep -E '^(#[0-9]+[[:space:]]+DONE|stat::number_of_executed_units|stat::peak_rss_mb)' "$log" || true
  else
    echo "!! $target fuzzer failed; its report:"
    grep -v -E '^#[0-9]+[[:space:]]+(NEW|REDUCE|pulse|RELOAD)' "$log" | tail -n 80
    status=1
  fi
done
exit $status
