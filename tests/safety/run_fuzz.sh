#!/usr/bin/env bash
# A bounded fuzz run of the backup unpacker: builds the libFuzzer target with clang, ASan and
# UBSan in a build folder of its own, and runs it from the seed corpus.
#   tests/safety/run_fuzz.sh [SECONDS]      (default 60)
#   OSTRAVEL_FUZZ_BUILD=DIR                 build folder (default build-fuzz in the checkout)
set -euo pipefail

here="$(cd "$(dirname "$0")" && pwd)"
root="$(cd "$here/../.." && pwd)"
seconds="${1:-60}"
build="${OSTRAVEL_FUZZ_BUILD:-$root/build-fuzz}"

cmake -S "$root" -B "$build" -G Ninja \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link" \
  -DOSTRAVEL_SANITIZE=ON \
  -DOSTRAVEL_BENCH=OFF >/dev/null
cmake --build "$build" --target he3_decode_fuzz -j2

# New inputs go to the first folder, which lasts between runs; the seeds are only read.
corpus="$build/he3_decode_corpus"
mkdir -p "$corpus"
"$build/tests/safety/he3_decode_fuzz" \
  -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=16384 \
  -artifact_prefix="$build/" -print_final_stats=1 \
  "$corpus" "$here/fuzz_seeds"
