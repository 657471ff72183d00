#!/usr/bin/env bash
# Whether everything said of the fixed puzzles is still the same to the letter: what makes the program quicker may
# change nothing of it. The grades carry log and snapshots; a seed makes the same puzzles for ever.
#
#   tests/tools/signatures.sh GRADINO-CLI CORPUS            says which command says something else
#   tests/tools/signatures.sh GRADINO-CLI CORPUS --write    takes what it says now as right
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
