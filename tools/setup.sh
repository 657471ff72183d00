#!/usr/bin/env bash
# Installs the Debian packages that the project needs and this machine lacks; prints nothing when all are
# there. Written for Debian 12; elsewhere it only names what must be there.
#
#   tools/setup.sh GROUP...      build  to compile and start the program
#                                test   besides, to build and run the tests and checks
#                                screen besides, to let a scripted user work on a virtual screen
#                                package to make the Debian package
#                                wayland, print, coverage, tidy
set -euo pipefail

declare -A groups=(
  [build]="g++ cmake ninja-build qt6-base-dev qt6-svg-dev libfmt-dev libcli11-dev nlohmann-json3-dev
           libsqlitecpp-dev libsqlite3-dev mdbtools-dev libpugixml-dev libcairo2-dev pkgconf
           fonts-liberation fonts-comic-neue"
  [test]="libgtest-dev libbenchmark-dev librapidcheck-dev xz-utils clang-format-14 shellcheck
          poppler-utils desktop-file-utils appstream mandoc librsvg2-bin python3"
  [screen]="xvfb openbox xdotool imagemagick dbus-daemon at-spi2-core gir1.2-atspi-2.0
            python3-gi libxdamage1"
  [package]="dpkg-dev librsvg2-bin lintian mmdebstrap"
  [wayland]="qt6-wayland"
  [print]="cups-daemon cups-client poppler-utils"
  [tidy]="clang-tidy-14"
  [coverage]="gcovr"
)

if (($# == 0)); then
  echo "usage: tools/setup.sh GROUP...  of: ${!groups[*]}" >&2
  exit 2
fi
wanted=()
for group in "$@"; do
  if [[ -z ${groups[$group]:-} ]]; then
    echo "setup: no such group: $group" >&2
    exit 2
  fi
  read -rd '' -a names <<<"${groups[$group]}" || true
  wanted+=("${names[@]}")
done

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "setup: this is not a Debian system, so nothing is installed. Needed are what Debian calls:" >&2
  printf '  %s\n' "${wanted[*]}" >&2
  exit 0
fi

missing=()
for name in "${wanted[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$name")
done
((${#missing[@]} == 0)) && exit 0

echo "setup: installing ${#missing[@]} packages and what they rest on: ${missing[*]}"
asroot=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    echo "setup: this takes root, and there is no sudo here. As root, run:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  asroot=(sudo)
fi

apt() {
  "${asroot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -y -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 "$@" </dev/null
}
refresh() {
  echo "setup: fetching the lists of packages"
  apt update
}
install() { apt install --no-install-recommends "${missing[@]}"; }

# A new machine has no package lists, and those of another may be old: their files may be gone from the mirror.
known=$(LC_ALL=C apt-cache policy "${missing[@]}" 2>/dev/null | grep -c '^  Candidate: [^(]' || true)
fresh=false
if ((known < ${#missing[@]})); then
  refresh && fresh=true
fi
if ! install; then
  if $fresh || ! refresh || ! install; then
    echo "setup: the packages could not be installed; what apt-get says is above. By hand, as root:" >&2
    echo "  apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
fi
echo "setup: done"
