#!/usr/bin/env bash
# Whether the output for the fixed puzzles is still exactly the same: optimisations must not change it. The grades
# include log and snapshots; a seed always makes the same puzzles.
#
#   tests/tools/signatures.sh GRADINO-CLI CORPUS            names the commands whose output has changed
#   tests/tools/signatures.sh GRADINO-CLI CORPUS --write    takes the present output as right
set -euo pipefail
cli=$(readlink -f "$1")
cd "$2"
known=signatures.txt

commands=(
  "grade --json --snapshots middle.txt"
  "grade --json --snapshots hard.txt"
  "grade --json --snapshots --lang it middle.txt"
  "count --json middle.txt"
  "count --json clashing.txt"
  "generate --json -n 1000 --seed 1"
  "generate --json -n 1000 --seed 1 --supersimmetrico"
  "generate --json -n 1000 --seed 2"
)

signatures() {
  local command words sum
  for command in "${commands[@]}"; do
    read -ra words <<<"$command"
    sum=$("$cli" "${words[@]}" | sha256sum)
    printf '%s  %s\n' "${sum%% *}" "$command"
  done
}

if [[ ${3:-} == --write ]]; then
  signatures >"$known.new"
  mv "$known.new" "$known"
else
  diff "$known" <(signatures)
fi
