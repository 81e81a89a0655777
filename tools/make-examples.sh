#!/usr/bin/env bash
# Regenerates the binary (.ribb) and gzip-compressed (.rib.gz) forms of the
# example scenes from their ASCII sources in examples/. The golden tests hold
# all three forms to the same ZEL records, so run this after editing a scene,
# then regenerate its golden file (see tests/golden/README.md).
#
# Usage: tools/make-examples.sh [NAME...]   (default: every scene with a golden file)
# The encoder is $RIB2BIN, or build/rib2bin (built on demand).
set -euo pipefail
cd "$(dirname "$0")/.."

rib2bin=${RIB2BIN:-build/rib2bin}
if [ ! -x "$rib2bin" ]; then
  cmake -S . -B build >/dev/null
  cmake --build build --target rib2bin -j"$(nproc)" >/dev/null
  rib2bin=build/rib2bin
fi

if [ $# -gt 0 ]; then
  names=("$@")
else
  names=()
  while read -r name; do
    case "$name" in ''|'#'*) continue ;; esac
    names+=("$name")
  done < tests/golden/scenes.txt
fi

for name in "${names[@]}"; do
  src=examples/$name.rib
  [ -f "$src" ] || { echo "make-examples: no $src" >&2; exit 1; }
  "$rib2bin" "$src" "examples/$name.ribb"
  # -n leaves out the name and time stamp, so the output depends on the text alone.
  gzip -n -9 -c "$src" > "examples/$name.rib.gz"
  echo "$name: $(wc -c < "$src") bytes ASCII, $(wc -c < "examples/$name.ribb") binary," \
       "$(wc -c < "examples/$name.rib.gz") compressed"
done
