#!/usr/bin/env bash
# Builds and runs all tests: scripts/test.sh [PRESET]. The preset is release unless told otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
Preset=${1:-release}
scripts/build.sh "$Preset"
ctest --preset "$Preset" -j "$(nproc)"
