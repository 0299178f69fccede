#!/usr/bin/env bash
# Runs every fuzz target over its corpus and then on new inputs: scripts/fuzz.sh [SECONDS], 20 for each target unless
# told otherwise. An input that fails is kept in out/fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
Seconds=${1:-20}
scripts/setup.sh clang libclang-rt-14-dev
scripts/build.sh fuzz fuzzers

mkdir -p out/fuzz
Scratch=$(mktemp -d)
trap 'rm -rf "$Scratch"' EXIT
for Program in build/fuzz/Tests/fuzz/fuzz_*; do
  Name=${Program##*fuzz_}
  Corpus=Tests/fuzz/corpus/$Name
  mkdir "$Scratch/$Name"
  if ! "$Program" -max_total_time="$Seconds" -timeout=10 -rss_limit_mb=2048 -artifact_prefix=out/fuzz/ \
    "$Scratch/$Name" "$Corpus" >"$Scratch/log" 2>&1; then
    tail -n 60 "$Scratch/log"
    echo "Fuzzing of $Name failed" >&2
    exit 1
  fi
  echo "$Name: $(tail -n 1 "$Scratch/log")"
done
