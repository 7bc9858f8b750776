#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOSTRAVEL_BENCH=OFF >/dev/null
cmake --build build --target ostravel ostravel-cli

# Without a display the program runs on a virtual one.
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  exec xvfb-run -a build/app/ostravel
fi
exec build/app/ostravel
