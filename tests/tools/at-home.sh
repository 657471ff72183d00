#!/usr/bin/env bash
# Runs a test in a home of its own that is new, empty, and gone when the test is over: settings, caches, data,
# sockets, temporary files. Nothing is left behind, nothing from an earlier run or of the user influences the test,
# and it can't reach a desktop in use.
#
#   tests/tools/at-home.sh FOLDER COMMAND...     the home is made in the folder
set -euo pipefail
folder=$(realpath -m "$1")
shift

# The bus takes socket names of up to 99 bytes, and those of a desk within the home are up to 43 longer than this.
((${#folder} <= 56)) || folder=${TMPDIR:-/tmp}
mkdir -p "$folder"
place=$(mktemp -d "$folder/XXXXXX")
trap 'rm -rf "$place" || true' EXIT

export HOME=$place/home XDG_RUNTIME_DIR=$place/run TMPDIR=$place/tmp
mkdir -m 700 "$HOME" "$XDG_RUNTIME_DIR" "$TMPDIR"
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_DATA_HOME XDG_STATE_HOME # all are in the home
unset DISPLAY WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
export PYTHONDONTWRITEBYTECODE=1 # nothing beside the sources either
"$@"
