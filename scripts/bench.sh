#!/usr/bin/env bash
# Runs the cases of Benchmarks/zy_cases several times (3, or as often as the argument says), prints a table of medians
# (and of the quickest runs) and writes them to out/bench.json. Each time stands beside one scan of a million values that was measured in turns with it; the unit
# is the median of all these scans.
set -euo pipefail
cd "$(dirname "$0")/.."
Rounds=${1:-3}
scripts/build.sh release zy_cases growth_chart
mkdir -p out
export QT_QPA_PLATFORM=offscreen
Program=build/release/Benchmarks/zy_cases
Rows=$(mktemp)
trap 'rm -f "$Rows"' EXIT
for ((Round = 0; Round < Rounds; ++Round)); do
  "$Program" 2>>out/bench.log | tee -a "$Rows" | grep --line-buffered '^zyphos' >&2
  # A process from its start to its end, measured from outside.
  for ((Run = 0; Run < 5; ++Run)); do
    Start=${EPOCHREALTIME/,/.}
    "$Program" --cold out/cold.png 2>>out/bench.log
    echo "cold I-cold $Start ${EPOCHREALTIME/,/.}" >>"$Rows"
    Start=${EPOCHREALTIME/,/.}
    "$Program" --cold-toolkit out/cold-toolkit.png 2>>out/bench.log
    echo "cold I-cold-toolkit $Start ${EPOCHREALTIME/,/.}" >>"$Rows"
  done
done
awk -v Rounds="$Rounds" '
  function Middle(List, Parts, Count, i, k, Swap) {
    Count = split(List, Parts, " ")
    for (i = 2; i <= Count; ++i)
      for (k = i; k > 1 && Parts[k] + 0 < Parts[k - 1] + 0; --k) { Swap = Parts[k]; Parts[k] = Parts[k - 1]; Parts[k - 1] = Swap }
    return Parts[int((Count + 1) / 2)]
  }
  function Note(Name) { if (!(Name in Known)) { Known[Name] = 1; Names[++Total] = Name } }
  $1 == "aim" { Aim[$2] = $3 }
  $1 == "zyphos" { Note($2); Seconds[$2] = Seconds[$2] " " $3; if ($4 > Peak[$2]) Peak[$2] = $4 }
  $1 == "limit" { Limit[$2] = Limit[$2] " " $3; Scans = Scans " " $3 }
  $1 == "best" && (!($2 in Best) || $3 < Best[$2]) { Best[$2] = $3 }
  $1 == "allocations" { Count[$2] = $3 }
  $1 == "cold" { Note($2); Seconds[$2] = Seconds[$2] " " $4 - $3 }
  $1 == "skipped" && !Told[$2]++ { Skipped = Skipped $0 "\n" }
  END {
    printf "%-24s %9s %9s %7s %7s %5s %11s %9s\n", "case", "ms", "limit ms", "units", "best", "aim", "allocations", "peak KiB"
    Json = "out/bench.json"
    Unit = Middle(Scans)
    printf "{\n  \"rounds\": %d,\n  \"limit_seconds\": %s,\n  \"cases\": [", Rounds, Unit > Json
    for (i = 1; i <= Total; ++i) {
      Name = Names[i]; Time = Middle(Seconds[Name]); Own = (Name in Limit) ? Middle(Limit[Name]) : Unit
      Ratio = Time / Unit
      Goal = (Name in Aim) ? Aim[Name] : ""
      Least = (Name in Best) ? sprintf("%.1f", Best[Name] / Unit) : ""
      printf "%-24s %9.2f %9.2f %7.1f %7s %5s %11s %9s\n", Name, Time * 1000, Own * 1000, Ratio, Least, Goal, Count[Name], Peak[Name]
      printf "%s\n    {\"name\": \"%s\", \"seconds\": %s, \"limit_seconds\": %s, \"units\": %.3f", (i > 1 ? "," : ""), Name, Time, Own, Ratio > Json
      if (Name in Best) printf ", \"best_seconds\": %s, \"best_units\": %s", Best[Name], Least > Json
      if (Goal != "") printf ", \"aim\": %s", Goal > Json
      if (Name in Best) printf ", \"allocations\": %s, \"peak_kib\": %s", Count[Name], Peak[Name] > Json
      printf "}" > Json
    }
    printf "\n  ]\n}\n" > Json
    printf "%s", Skipped
  }' "$Rows"
build/release/Benchmarks/growth_chart out/bench.json out/growth.png
