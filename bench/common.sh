# What the benchmark scripts share; sourced, not run. The caller has set
# `repo`, `build` and `script` (its own name, for messages).

# The workload generator, which stands in shared/ beside the repository.
generator=$repo/../shared/bench/gen_big_rib.py
if [ ! -f "$generator" ]; then
  echo "$script: the workload generator $generator is missing" >&2
  exit 2
fi

# Builds the named targets in an optimised build in $build, configuring it
# first if it is new.
build_targets() {
  if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S "$repo" -B "$build" -DCMAKE_BUILD_TYPE=Release -DRZ_GUI=OFF -DRZ_TESTS=OFF >/dev/null
  fi
  if ! cmake --build "$build" --target "$@" -j"$(nproc)" >"$build/bench-build.log" 2>&1; then
    tail -n 30 "$build/bench-build.log" >&2
    echo "$script: building $* failed" >&2
    exit 2
  fi
}

# The path of a program that build_targets built.
find_program() {
  find "$build" -maxdepth 3 -type f -name "$1" -perm -u+x | head -n 1
}
