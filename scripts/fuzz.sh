#!/usr/bin/env bash
# Runs every fuzz target over its corpus and then on new inputs, some at once: scripts/fuzz.sh [SECONDS], 20 for each target
# unless told otherwise. An input that fails is kept in out/fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
Seconds=${1:-20}
scripts/setup.sh clang libclang-rt-14-dev
scripts/build.sh fuzz fuzzers

mkdir -p out/fuzz
Scratch=$(mktemp -d)
trap 'rm -rf "$Scratch"' EXIT
export Scratch Seconds

fuzz() {
  local Name=${1##*fuzz_}
  mkdir "$Scratch/$Name"
  if ! "$1" -max_total_time="$Seconds" -timeout=10 -rss_limit_mb=2048 -artifact_prefix=out/fuzz/ \
    "$Scratch/$Name" "Tests/fuzz/corpus/$Name" >"$Scratch/$Name.log" 2>&1; then
    tail -n 60 "$Scratch/$Name.log"
    echo "Fuzzing of $Name failed" >&2
    return 255  # the others do not begin
  fi
  echo "$Name: $(tail -n 1 "$Scratch/$Name.log")"
}
export -f fuzz

# As many at once as there are processors.
printf '%s\0' build/fuzz/Tests/fuzz/fuzz_* | xargs -0 -P "$(nproc)" -I '{}' bash -c 'fuzz "{}"'
