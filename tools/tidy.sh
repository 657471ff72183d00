#!/usr/bin/env bash
# clang-tidy, with the checks that .clang-tidy chooses, over sources as the dev preset compiles them.
#
#   tools/tidy.sh --changed   what this branch has changed: since it left the branch that it follows, or where
#                             it follows none, in the last commit; what is not committed besides. Without
#                             the analyzer, which takes four fifths of the time, and at most 40 sources: a
#                             change of more is looked at with --all before it is handed in
#   tools/tidy.sh --all       all sources
#   tools/tidy.sh FILE...     these
#
# GRADINO_TIDY_BASE is the commit that --changed begins at, if it should be another. The tests of the window are
# left out: the toolkit's generated sources are a part of each, and are not ours to mend.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/dev

# A header is looked at with a source that includes it: that of its own name if there is one.
sourceof() {
  local file=$1 own=${1%.h}.cpp
  case $file in
    *.cpp) echo "$file" ;;
    *.h) if [[ -f $own ]]; then echo "$own"; else git grep -l "\"$(basename "$file")\"" -- '*.cpp' | head -1 || true; fi ;;
  esac
}

changed() {
  local base head
  head=$(git rev-parse HEAD)
  base=${GRADINO_TIDY_BASE:-}
  [[ -n $base ]] || base=$(git merge-base HEAD '@{upstream}' 2>/dev/null || git merge-base HEAD origin/HEAD 2>/dev/null || echo "$head")
  if [[ $(git rev-parse "$base") == "$head" ]]; then base=$(git rev-parse -q --verify HEAD~1 || echo "$head"); fi
  { git diff --name-only --diff-filter=d "$base"; git ls-files --others --exclude-standard; } | sort -u
}

checks=() most=
case ${1:---changed} in
  --all) files=$(git ls-files 'src/*.cpp' 'tests/*.cpp' 'bench/*.cpp' | grep -v '^tests/window/') ;;
  --changed)
    files=$(if git rev-parse -q --verify HEAD >/dev/null; then changed | grep -v '^tests/window/' || true; fi)
    checks=(--checks='-clang-analyzer-*') most=40
    ;;
  -*) sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//p}' "$0"; exit 2 ;;
  *) files=$(printf '%s\n' "$@") ;;
esac

tidy=$(command -v clang-tidy-14 || true)
if [[ -z $tidy ]]; then
  echo "tidy: no clang-tidy-14 here, sources not checked"
  exit
fi
sources=$(while read -r file; do sourceof "$file"; done <<<"$files" | sort -u)
known=$(while read -r source; do
  if [[ -n $source ]] && grep -qF "\"$PWD/$source\"" "$build/compile_commands.json"; then echo "$source"; fi
done <<<"$sources")
[[ -n $known ]] || exit 0

count=$(wc -l <<<"$known")
if [[ -n $most ]] && ((count > most)); then
  echo "tidy: $count sources are too many to look at on the way: tools/tidy.sh --all does"
  exit 0
fi
echo "tidy: $count sources"
failed=0
xargs -r -P "$(nproc)" -n 1 "$tidy" -p "$build" --quiet "${checks[@]}" <<<"$known" 2>/dev/null || failed=1
if ((failed)); then
  echo "tidy: each finding above names its check; .clang-tidy says which are left out and why" >&2
fi
exit $failed
