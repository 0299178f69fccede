#!/usr/bin/env bash
# Runs a program with a display and a bus of screen readers of its own: run_with_reader.sh BUS_LAUNCHER PROGRAM [ARGUMENT...].
set -eu
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 ZY_SCREEN_READER=1
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
# shellcheck disable=SC2016
xvfb-run -a dbus-run-session -- bash -c '
  "$1" --launch-immediately & Bus=$!
  trap "kill $Bus" EXIT
  sleep 1
  "${@:2}"' bash "$@"
