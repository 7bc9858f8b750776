#!/usr/bin/env bash
# Installs what is missing, checks that the house runs one way and that the sources are
# formatted, builds everything with warnings as errors and under AddressSanitizer and UBSan,
# runs every test there, then a bounded fuzz run of the backup decoder, then the figures' tests
# once more in a Release build.
#   OSTRAVEL_NO_SANITIZERS=1 scripts/test.sh    a plain build, quicker for local runs
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/check_layers.py
scripts/check_format.sh
jobs=$(nproc)

sanitize=ON
[ "${OSTRAVEL_NO_SANITIZERS:-0}" = 1 ] && sanitize=OFF

cmake -S . -B build-test -G Ninja -DCMAKE_BUILD_TYPE=Debug -DOSTRAVEL_WERROR=ON \
  -DOSTRAVEL_SANITIZE="$sanitize" >/dev/null
cmake --build build-test -j"$jobs"
ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-test --output-on-failure -j"$jobs" | tee build-test/ctest.log

tests/safety/run_fuzz.sh

# The figures that must hold to the paisa once more as an optimised build computes them: the
# indicators, the advice rule and whole simulation runs against their pinned results.
release_tests='^(charts_indicators_test|position_test|simulation_test)$'
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DOSTRAVEL_WERROR=ON -DOSTRAVEL_BENCH=OFF >/dev/null
cmake --build build-release -j"$jobs" --target charts_indicators_test position_test simulation_test
ctest --test-dir build-release --output-on-failure -R "$release_tests" | tee build-release/ctest.log

# The closing line CI reads: every test program passed (a failure stopped the script above).
count() { sed -n 's/.*tests failed out of \([0-9]*\).*/\1/p' "$1" | tail -n 1; }
echo "tests: $(($(count build-test/ctest.log) + $(count build-release/ctest.log))) passed, 0 failed"
