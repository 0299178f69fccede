#!/usr/bin/env bash
# Counts includes that run up: from a folder to one that stands below it in Sources/CMakeLists.txt. There must be none.
set -euo pipefail
cd "$(dirname "$0")/../Sources"
Order=$(sed -n 's/^add_subdirectory(\(.*\))$/\1/p' CMakeLists.txt)
git grep -n '^#include "' -- '*.h' '*.cpp' '*.inl' | awk -v Order="$Order" '
  function FolderOf(Path) { return Path ~ /\// ? substr(Path, 1, match(Path, /\/[^\/]*$/) - 1) : "" }
  BEGIN { Count = split(Order, Names, "\n"); for (i = 1; i <= Count; ++i) Rank[Names[i]] = i }
  {
    split($0, Parts, ":")
    match($0, /"[^"]+"/)
    Target = substr($0, RSTART + 1, RLENGTH - 2)
    From = FolderOf(Parts[1])
    To = FolderOf(Target)
    if (From == "" || To == "") next  # Charts.h and its like stand above all
    ++Seen
    if (!(From in Rank) || !(To in Rank)) { print "In no layer: " Parts[1] " or " Target; ++Wrong }
    else if (Rank[To] > Rank[From]) { print Parts[1] ":" Parts[2] " includes " Target; ++Wrong }
  }
  END { printf "%d includes, %d run up\n", Seen, Wrong; exit Wrong > 0 }'
