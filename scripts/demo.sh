#!/usr/bin/env bash
# Builds the examples and runs them: pictures go to out/, windows open where there is a display.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release examples
mkdir -p out
build/release/Examples/palette
build/release/Examples/captions
build/release/Examples/caption_editor
build/release/Examples/controls
build/release/Examples/embed
build/release/Examples/form
build/release/Examples/analysis
build/release/Examples/equation
build/release/Examples/measure
QT_QPA_PLATFORM=offscreen build/release/Examples/undo_buttons  # an open list would keep the user's mouse
build/release/Examples/studio
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then build/release/Examples/gallery; fi
QT_QPA_PLATFORM=offscreen build/release/Examples/large --rows 1e6 out/large_million  # the hundred million rows of a run without it take minutes
build/release/Examples/live
QT_QPA_PLATFORM=offscreen build/release/Examples/looks
build/release/Examples/first_chart
QT_QPA_PLATFORM=offscreen build/release/Examples/gallery  # its files, whatever display there is
build/release/Examples/convert --size 1200x700 out/gallery/shares.zyx out/shares.png
