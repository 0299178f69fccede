#!/usr/bin/env bash
# Takes the tree into a foreign project with add_subdirectory, and builds and runs the first chart of the README there: its
# picture is out/subdirectory/chart.png.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
Root=$PWD
rm -rf out/subdirectory
mkdir -p out/subdirectory
cmake -DREADME=README.md -DOUT=out/subdirectory/FirstChart.cpp -P Tests/install/WriteFirstChart.cmake
cat >out/subdirectory/CMakeLists.txt <<PROJECT
cmake_minimum_required(VERSION 3.25)
project(FirstChart LANGUAGES CXX)
add_subdirectory("$Root" zyphos EXCLUDE_FROM_ALL)
add_executable(first_chart FirstChart.cpp)
target_link_libraries(first_chart Zyphos::Charts)
PROJECT
# Where it is built and with what warnings decides whether the compiler cache knows the sources from another build.
export CCACHE_BASEDIR=$Root CCACHE_NOHASHDIR=1
cmake -S out/subdirectory -B build/subdirectory -G Ninja -DCMAKE_BUILD_TYPE=Release -DZYPHOS_WERROR=ON \
  -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build build/subdirectory
(cd out/subdirectory && QT_QPA_PLATFORM=offscreen "$Root/build/subdirectory/first_chart")
[[ $(stat -c %s out/subdirectory/chart.png) -gt 2000 ]]
