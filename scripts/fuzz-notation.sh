#!/usr/bin/env bash
# Builds the notation fuzz target with clang (libFuzzer and AddressSanitizer)
# in build/fuzz and runs it for a bounded time.
#   scripts/fuzz-notation.sh [seconds]   (default 60)
# Crashes are written to build/fuzz/artifacts; the corpus grows in
# build/fuzz/corpus and is reused by the next run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
build=build/fuzz

cmake -S . -B "$build" -G Ninja \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address -fno-omit-frame-pointer" \
  -DNADAVIK_BUILD_FUZZ=ON -DNADAVIK_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --target notation_fuzz -j2

mkdir -p "$build/corpus" "$build/artifacts"
seeds=(
  "S R G m P D N S> S> N D P m G R S"
  " S> N n D d P M m G g R r S"
  "S R :G m , S'R> : n<'S"
  "15 15 , 15 2.5 0.52 1e3"
  "saa ro\\ ga\\, maM ina\\M , Qa'p : .1.saa"
)
for i in "${!seeds[@]}"; do printf '\001%s' "${seeds[$i]}" >"$build/corpus/seed$i"; done

"$build/fuzz/notation_fuzz" "$build/corpus" \
  -max_total_time="$seconds" -max_len=8192 -artifact_prefix="$build/artifacts/" \
  -print_final_stats=1
