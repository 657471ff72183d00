#!/usr/bin/env bash
# Formatting of the sources and soundness of the shell scripts. "tools/check-style.sh --fix" formats.
set -euo pipefail
cd "$(dirname "$0")/.."

how=(--dry-run -Werror)
[[ ${1:-} == --fix ]] && how=(-i)

# Versions of clang-format differ in small things: the one of Debian 12 decides.
if command -v clang-format-14 >/dev/null; then
  find src tests bench packaging \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format-14 "${how[@]}" || {
    echo "check-style: tools/check-style.sh --fix formats these files" >&2
    exit 1
  }
else
  echo "check-style: no clang-format-14 here, formatting not checked"
fi
# What clang-tidy lets pass as (cell, digit) must be in that order.
if git grep -nE '\(([^()]*, )?int digit, int (cell|one|other)\b' -- 'src/*.h' 'src/*.cpp'; then
  echo "check-style: a cell stands before its digit" >&2
  exit 1
fi
if command -v shellcheck >/dev/null; then
  shellcheck run test .ci/run tools/*.sh tools/hooks/* tests/tools/*.sh tests/cases/record
else
  echo "check-style: no shellcheck here, scripts not checked"
fi
