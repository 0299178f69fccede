#!/usr/bin/env bash
# What .ci/run has no time for: the soak test for ten minutes, all tests under every sanitizer, clang-tidy, packages of shared
# libraries, the tree in another project, and longer fuzzing. Takes hours where nothing is built yet.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/soak.sh 600 release
scripts/test.sh asan
scripts/soak.sh 120 asan
scripts/test.sh tsan
scripts/tidy.sh
scripts/packages.sh
scripts/test-packages.sh
scripts/test-subdirectory.sh
scripts/fuzz.sh 300
