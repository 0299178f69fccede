#!/usr/bin/env bash
# Installs what the build needs and the machine lacks, from Debian's packages. Further packages may be named as
# arguments. Does nothing, at once, when all is there.
set -euo pipefail

Packages=(
  g++ cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-image-formats-plugins libqt6sql6-sqlite libgl-dev
  libpugixml-dev libgif-dev libgtest-dev libbenchmark-dev
  fonts-liberation fonts-dejavu-core xvfb
  "$@"
)

Missing=()
for Package in "${Packages[@]}"; do
  Status=$(dpkg-query -W -f '${db:Status-Status}' "$Package" 2>/dev/null || true)
  [[ $Status == installed ]] || Missing+=("$Package")
done
((${#Missing[@]})) || exit 0

if ! command -v apt-get >/dev/null; then
  echo "Please install what these Debian packages hold: ${Missing[*]}" >&2
  exit 1
fi
AsRoot=()
[[ $(id -u) == 0 ]] || AsRoot=(sudo)
echo "Installing ${Missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${AsRoot[@]}" apt-get update -qq
"${AsRoot[@]}" apt-get install -y -qq --no-install-recommends "${Missing[@]}" >/dev/null
