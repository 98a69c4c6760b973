#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang (libFuzzer, AddressSanitizer
# and UndefinedBehaviorSanitizer) in build/fuzz and runs each for SECONDS
# seconds, one after the other, on a copy of its committed corpus
# fuzz/corpus/<target> (the corpus the run grows stays in build/fuzz).
#   scripts/fuzz-all.sh [SECONDS] [TARGET...]   (default 60 s, every target)
# Prints each target's execs and the new crashes; a crash, a leak or an
# undefined-behaviour report ends the command with status 1, its input in
# build/fuzz/artifacts/<target>/ (add it to the committed corpus once fixed).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
shift || true
build=build/fuzz
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  targets=($(sed -n 's/^nadavik_fuzz_target(\([a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt))
fi

cmake -S . -B "$build" -G Ninja \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
  -DNADAVIK_BUILD_FUZZ=ON -DNADAVIK_BUILD_TESTS=OFF -DNADAVIK_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --target "${targets[@]}" -j "$(nproc)"

export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
# The targets' own files (stores, trace files) go here, emptied after each.
export TMPDIR="$PWD/$build/tmp"
status=0
summary=()
for target in "${targets[@]}"; do
  corpus="$build/corpus/$target" artifacts="$build/artifacts/$target"
  mkdir -p "$corpus" "$artifacts" "$TMPDIR"
  log="$build/$target.log"
  echo "== $target: ${seconds} s"
  run=0
  "$build/fuzz/$target" "$corpus" fuzz/corpus/"$target" -max_total_time="$seconds" -max_len=8192 \
    -artifact_prefix="$artifacts/" -print_final_stats=1 -timeout=10 -rss_limit_mb=2048 \
    >"$log" 2>&1 || run=$?
  rm -rf "$TMPDIR"
  execs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
  if [ "$run" -ne 0 ]; then
    status=1
    grep -E "ERROR|runtime error|Test unit written" "$log" | head -5 >&2
    summary+=("$target: ${execs:-?} execs, FAILED (see $log)")
  else
    summary+=("$target: ${execs:-?} execs, no finding")
  fi
done
printf '%s\n' "${summary[@]}"
exit "$status"
