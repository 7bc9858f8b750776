#!/usr/bin/env bash
# Installs what is missing, builds everything with warnings as errors and runs every test:
# once as built, once under AddressSanitizer and UBSan, then the decoder's fuzz run.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
jobs=$(nproc)

cmake -S . -B build-test -G Ninja -DCMAKE_BUILD_TYPE=Debug -DOSTRAVEL_WERROR=ON >/dev/null
cmake --build build-test -j"$jobs"
ctest --test-dir build-test --output-on-failure -j"$jobs" | tee build-test/ctest.log

if [ "${OSTRAVEL_SKIP_SANITIZERS:-0}" != 1 ]; then
  cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DOSTRAVEL_WERROR=ON \
    -DOSTRAVEL_SANITIZE=ON -DOSTRAVEL_BENCH=OFF >/dev/null
  cmake --build build-asan -j"$jobs"
  ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir build-asan --output-on-failure -j"$jobs"
fi

if [ -x tests/safety/run_fuzz.sh ]; then
  tests/safety/run_fuzz.sh
fi

# The closing line CI reads: every test program passed (a failure stopped the script above).
total=$(sed -n 's/.*tests failed out of \([0-9]*\).*/\1/p' build-test/ctest.log | tail -n 1)
echo "tests: ${total:-0} passed, 0 failed"
