#!/usr/bin/env bash
# Installs the Debian packages that scripts/packages.sh made into a root that has nothing but the base of the system, as on a new
# machine, and builds and runs the first chart of the README there. Needs the rights to change roots.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh mmdebstrap
[[ -d out/packages ]] || scripts/packages.sh
Root=$(mktemp -d)
trap 'rm -rf "$Root"' EXIT
chmod 755 "$Root"
# shellcheck source=/dev/null
Suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
mmdebstrap --quiet --variant=minbase "$Suite" "$Root"
cp /etc/resolv.conf "$Root/etc/resolv.conf"
mkdir "$Root/first"
cp out/packages/*.deb "$Root/first"
cmake -DREADME=README.md -DOUT="$Root/first/FirstChart.cpp" -P Tests/install/WriteFirstChart.cmake
cat >"$Root/first/CMakeLists.txt" <<'PROJECT'
cmake_minimum_required(VERSION 3.25)
project(FirstChart LANGUAGES CXX)
find_package(Zyphos REQUIRED COMPONENTS Charts)
add_executable(first_chart FirstChart.cpp)
target_link_libraries(first_chart Zyphos::Charts)
PROJECT
cat >"$Root/first/run" <<'RUN'
set -eu
cd /first
export DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/run
apt-get -qq update
apt-get -qq install -y --no-install-recommends ./libzyphos*.deb g++ cmake make pkg-config fonts-dejavu-core >/dev/null 2>&1
cmake -S . -B build >/dev/null
cmake --build build >/dev/null
build/first_chart
mv chart.png by-cmake.png
g++ -std=c++20 -fPIC FirstChart.cpp $(pkg-config --cflags --libs zyphos) -o first_chart
./first_chart
cmp chart.png by-cmake.png
RUN
chroot "$Root" sh /first/run
cp "$Root/first/chart.png" out/packages/chart.png
echo "The packages draw the README's first chart: out/packages/chart.png"
