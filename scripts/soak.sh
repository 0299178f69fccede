#!/usr/bin/env bash
# Uses charts at random and looks whether they come back to where they were: scripts/soak.sh [SECONDS [PRESET [SEED]]],
# 20 seconds and the release preset unless told otherwise. A seed repeats a run that failed.
set -euo pipefail
cd "$(dirname "$0")/.."
Seconds=${1:-20}
Preset=${2:-release}
scripts/build.sh "$Preset" soak
QT_QPA_PLATFORM=offscreen "build/$Preset/Tests/soak" "$Seconds" ${3:+"$3"}
