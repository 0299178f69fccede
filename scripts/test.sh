#!/usr/bin/env bash
# Builds and runs all tests: scripts/test.sh [PRESET]. The preset is release unless told otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh imagemagick poppler-utils librsvg2-bin  # they read what the tests write
Preset=${1:-release}
scripts/build.sh "$Preset"
ctest --preset "$Preset" -j "$(nproc)"
