#!/usr/bin/env bash
# Builds the tree: scripts/build.sh PRESET [TARGET...]. Presets are those of CMakePresets.json.
set -euo pipefail
cd "$(dirname "$0")/.."
Preset=$1
shift

# The compiler cache serves every checkout on the machine: paths below the root count from there.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

scripts/setup.sh
cmake --preset "$Preset" >"/tmp/zyphos-configure-$$.log" 2>&1 || {
  cat "/tmp/zyphos-configure-$$.log"
  exit 1
}
rm -f "/tmp/zyphos-configure-$$.log"
cmake --build "build/$Preset" ${1:+--target "$@"}
