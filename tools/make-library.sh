#!/usr/bin/env bash
# Makes the library that is shipped, library/schemigenerati.mdb. The same file each time for the same numbers.
#
#   tools/make-library.sh [PUZZLES [EACH [PROGRAM [MORE]]]]
#
#   PUZZLES   how many are made of each symmetry               100000
#   EACH      how many are kept of a level, at most               400
#   PROGRAM   build/release/bin/gradino-cli
#   MORE      how many more are made for the rarest levels    1200000
set -euo pipefail
cd "$(dirname "$0")/.."

puzzles=${1:-100000}
each=${2:-400}
program=${3:-build/release/bin/gradino-cli}
more=${4:-1200000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$program" generate -n "$puzzles" --seed 2026 --jobs 2 --json >"$work/two.jsonl"
"$program" generate -n "$puzzles" --seed 2027 --jobs 2 --supersimmetrico --json >"$work/four.jsonl"
"$program" generate -n "$more" --seed 2028 --jobs 2 --json |
  { grep -E '"level":(7|12),' || (($? == 1)); } >"$work/more.jsonl" # 1: none is among them
python3 tools/choose-puzzles.py "$each" "$work/two.jsonl" "$work/four.jsonl" "$work/more.jsonl" >"$work/rows.jsonl"
rm -f library/schemigenerati.mdb
mkdir -p library
"$program" library --file library/schemigenerati.mdb import "$work/rows.jsonl"
"$program" library --file library/schemigenerati.mdb check
"$program" library --file library/schemigenerati.mdb stats
