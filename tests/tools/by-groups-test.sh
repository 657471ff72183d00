#!/usr/bin/env bash
# What by-groups.py says of a few tests that pass, fail and are skipped.
#
#   tests/tools/by-groups-test.sh FOLDER     FOLDER is made anew
set -euo pipefail
here=$(realpath "$(dirname "$0")")
rm -rf "$1"
mkdir -p "$1"
cd "$1"
cat >CTestTestfile.cmake <<'CMAKE'
add_test("Suite.One/3  # GetParam() = (8-byte object <E8 ... 00>)" true)
add_test(Suite.Two sh -c "echo what it has written; exit 1")
add_test(alone true)
add_test(left sh -c "exit 77")
set_tests_properties("Suite.One/3  # GetParam() = (8-byte object <E8 ... 00>)" Suite.Two PROPERTIES LABELS first)
set_tests_properties(alone left PROPERTIES LABELS second)
set_tests_properties(left PROPERTIES SKIP_RETURN_CODE 77)
CMAKE

expect() { # STATUS PATTERN... on ARGUMENTS
  local want=$1 status=0 pattern
  shift
  "$here/by-groups.py" "${arguments[@]}" >said 2>&1 || status=$?
  for pattern in "$@"; do
    grep -qE -- "$pattern" said || {
      echo "by-groups-test: no line \"$pattern\" with ${arguments[*]}:"
      cat said
      exit 1
    }
  done
  ((status == want)) || {
    echo "by-groups-test: status $status with ${arguments[*]}"
    exit 1
  }
}
arguments=(--output-on-failure -j 2)
expect 8 '^4 tests: first 2, second 2$' '^  first   2 tests, 0 s, 1 failed$' '^  second  2 tests, 0 s, 1 skipped$' \
  '^what it has written$' 'Test +#2: Suite.Two .*\*\*\*Failed' 'tests failed out of 4' '2 - Suite.Two \(Failed\)'
if grep -qE 'alone|Start|One' said; then
  echo "by-groups-test: says what passed:"
  cat said
  exit 1
fi
arguments=(-R alone)
expect 0 '^1 tests: second 1$' '^  second  1 test, 0 s$' '100% tests passed'
arguments=(-R nothing)
expect 0 '^0 tests: $' 'No tests were found'
arguments=(-N)
expect 0 '^4 tests: first 2, second 2$' 'Test +#3: alone$'
