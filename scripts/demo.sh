#!/usr/bin/env bash
# Builds the examples and runs them: pictures go to out/, windows open where there is a display.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release examples
mkdir -p out
build/release/Examples/palette
build/release/Examples/captions
build/release/Examples/embed
build/release/Examples/form
build/release/Examples/gallery
build/release/Examples/live
build/release/Examples/first_chart
