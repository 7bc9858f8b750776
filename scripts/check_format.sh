#!/usr/bin/env bash
# Fails when a source file differs from what the project's .clang-format makes of it.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard -- '*.cpp' '*.h' | xargs clang-format --dry-run -Werror
echo "format check: every source file as .clang-format has it"
