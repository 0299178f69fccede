#!/usr/bin/env bash
# Formats every source file in place; with --check it only lists those that are not formatted, and fails if there are any.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh clang-format
Mode=(-i)
[[ ${1:-} == --check ]] && Mode=(--dry-run --Werror)
git ls-files -co --exclude-standard -- '*.h' '*.cpp' '*.inl' | xargs clang-format "${Mode[@]}"
