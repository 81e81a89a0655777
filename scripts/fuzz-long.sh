#!/usr/bin/env bash
# The long fuzzing run: each target for FUZZ_SECONDS (default 240) with inputs
# up to 1 MB, from seeds that stand next to the reader's limits, which the
# quick run's small inputs never reach: arrays of 65,535 and 65,536 items, a
# string, a keyword and a number of 65,536 bytes (the most a token keeps is
# 65,535), and binary arrays that claim 2^31 and 2^32 - 1 items. The gzip
# target gets each of them compressed. Other settings as for ci-fuzz.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${FUZZ_BUILD_DIR:-build-fuzz}
seeds=$build/seeds-long
mkdir -p "$seeds/scanner" "$seeds/conversion" "$seeds/extended" "$seeds/gzip"

python3 - "$seeds/conversion" <<'PY'
import sys, os
out = sys.argv[1]
def put(name, data):
    with open(os.path.join(out, name), "wb") as f:
        f.write(data)
def floats(n):
    return b"[" + b" 0" * n + b" ]"
head = b"WorldBegin\n"
for n in (65535, 65536):
    put(f"polygon_{n}_floats", head + b'Polygon "P" ' + floats(n) + b"\n")
    put(f"points_{n}_vertices", head + b'PointsPolygons [1] [0] "P" ' + floats(3 * n) + b"\n")
    put(f"general_{n}_loops", head + b"GeneralPolygon [" + b" 3" * n + b' ] "P" [0 0 0]\n')
put("string_65536", head + b'Surface "' + b"s" * 65536 + b'"\n')
put("string_65535_escapes", head + b'Surface "' + b"\\n" * 65535 + b'"\n')
put("keyword_65536", head + b"K" * 65536 + b"\nSphere 1 -1 1 360\n")
put("number_65536", head + b"Sphere 1 -1 " + b"1" * 65536 + b" 360\n")
put("fraction_65536", head + b"Sphere 1 -1 0." + b"0" * 65534 + b"1e65535 360\n")
for claim in (b"\x80\x00\x00\x00", b"\xff\xff\xff\xff"):
    put("binary_array_" + claim.hex(), head + b'Polygon "P" \xcb' + claim + b"\x3f\x80\x00\x00" * 6 + b"\n")
    put("binary_string_" + claim.hex(), head + b'Surface \xa3' + claim + b"abc\n")
PY
cp "$seeds/conversion"/* "$seeds/scanner/"
cp "$seeds/conversion"/* "$seeds/extended/"
for f in "$seeds/conversion"/*; do gzip -c "$f" >"$seeds/gzip/$(basename "$f").gz"; done

FUZZ_SECONDS=${FUZZ_SECONDS:-240} FUZZ_MAX_LEN=1048576 FUZZ_SEEDS=$seeds \
  exec bash scripts/ci-fuzz.sh
