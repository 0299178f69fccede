#!/usr/bin/env bash
# Makes Debian packages of the shared libraries, in out/packages: libzyphos0.1 to run programs with, libzyphos-dev to build
# them with. Before that it uses the libraries as an application does, see Tests/install.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh dpkg-dev file
scripts/build.sh shared
QT_QPA_PLATFORM=offscreen cmake -DBUILD="$PWD/build/shared" -DSOURCE="$PWD/Tests/install" -DCXX="${CXX:-c++}" -P Tests/install/RunInstallTest.cmake >/dev/null
rm -rf out/packages
mkdir -p out/packages
cpack --config build/shared/CPackConfig.cmake -B out/packages >out/packages/log || {
  cat out/packages/log >&2
  exit 1
}
rm -rf out/packages/_CPack_Packages out/packages/log
ls out/packages/*.deb
