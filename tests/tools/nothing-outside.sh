#!/usr/bin/env bash
# Runs the tests and checks that they wrote nothing outside the build folder.
#
#   tests/tools/nothing-outside.sh FOLDER COMMAND...     FOLDER is made anew
#
# Each test that starts programs has a home of its own, see at-home.sh. A test that escapes from that writes to the
# home, the runtime folder or the folder for temporary files of the user. These are replaced here by empty folders
# that no other program knows: whatever is in them at the end was written by a test. The real ones can't be compared,
# since browser, editor and shell may write there at any time.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(realpath -m "$1")
shift

# Programs that ignore the environment would still find the real home. There only names count that only our programs
# and those of the tests' desk use, and only if they are new: the user may well play Gradino while the tests run. Of
# the settings of the desktop only the one for screen readers is checked, since others may change at any time.
reach() {
  local name
  for name in ~/.config/{gradino*,Gradino*,QtProject*} ~/.cache/{gradino*,openbox} ~/.local/share/gradino*; do
    [[ ! -e $name ]] || echo "$name"
  done
  ! grep -qs toolkit-accessibility ~/.config/dconf/user || echo ~/.config/dconf/user
}
# What the tests read beside the sources: if that changes meanwhile, it isn't clear what was tested.
touched() {
  find library samples tests/data -newer "$folder/stamp"
  find . -path ./build -prune -o -name __pycache__ -newer "$folder/stamp" -print
}

if [[ -e $folder ]]; then
  chmod -R u+rwX "$folder"
  rm -r "$folder"
fi
mkdir -p "$folder"
mkdir -m 700 "$folder"/{home,run,tmp}
touch "$folder/stamp"
before=$(reach)

status=0
env -u XDG_CONFIG_HOME -u XDG_CACHE_HOME -u XDG_DATA_HOME -u XDG_STATE_HOME \
  HOME="$folder/home" XDG_RUNTIME_DIR="$folder/run" TMPDIR="$folder/tmp" "$@" || status=$?

written=$(
  find "$folder"/{home,run,tmp} -mindepth 1
  touched
  comm -13 <(sort <<<"$before") <(reach | sort)
)
if [[ -n $written ]]; then
  {
    echo "The tests wrote outside the build folder:"
    sed "s|^$folder/home|~|; s|^$folder/run|\$XDG_RUNTIME_DIR|; s|^$folder/tmp|\$TMPDIR|; s|^|  |" <<<"$written"
  } >&2
  ((status != 0)) || status=1
fi
exit $status
