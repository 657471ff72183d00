#!/usr/bin/env bash
# Puzzles made per second, one process each, equal numbers, in one run: gradino-cli generate and qqwing (Debian's
# package of that name).
#
#   bench/generator.sh [NUMBER [PROGRAM]]      1000, build/release/bin/gradino-cli
set -euo pipefail
cd "$(dirname "$0")/.."

number=${1:-1000}
program=${2:-build/release/bin/gradino-cli}
TIMEFORMAT=%U

seconds() {
  { time "$@" >/dev/null; } 2>&1
}

ours=$(seconds "$program" generate -n "$number" --seed 1)
four=$(seconds "$program" generate -n "$number" --seed 1 --supersimmetrico)
other=$(seconds qqwing --generate "$number" --symmetry rotate180 --one-line)
awk -v n="$number" -v o="$ours" -v f="$four" -v q="$other" 'BEGIN {
  printf "%-34s %8.0f a second\n", "gradino-cli generate", n / o
  printf "%-34s %8.0f a second\n", "  --supersimmetrico", n / f
  printf "%-34s %8.0f a second\n", "qqwing --symmetry rotate180", n / q
  printf "ratio %.1f\n", q / o
}'
