#!/usr/bin/env bash
# Runs clang-tidy over the sources, or over the files named, by the compile commands of the debug preset.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh clang-tidy
cmake --preset debug >/dev/null
if (($#)); then Files=("$@"); else mapfile -t Files < <(git ls-files -co --exclude-standard -- 'Sources/*.cpp' 'Examples/*.cpp'); fi
printf '%s\n' "${Files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/debug --quiet --extra-arg=-Wno-unknown-warning-option
