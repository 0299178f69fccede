#!/usr/bin/env bash
# Builds the tree: scripts/build.sh PRESET [TARGET...]. Presets are those of CMakePresets.json.
set -euo pipefail
cd "$(dirname "$0")/.."
Preset=$1
shift

# The compiler cache serves every checkout on the machine: paths below the root count from there.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

scripts/setup.sh
Log=$(cmake --preset "$Preset" 2>&1) || {
  printf '%s\n' "$Log"
  exit 1
}
cmake --build "build/$Preset" ${1:+--target "$@"}
