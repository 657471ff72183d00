#!/usr/bin/env bash
# Installs the Debian package in a system of its own that has nothing else, and lets an ordinary user start
# both programs there. Takes root, about 700 MB below /tmp for its time, and two minutes.
#
#   tools/package-test.sh PACKAGE.deb
# shellcheck disable=SC2016    # what stands in single quotes is for others to expand
set -euo pipefail

if (($# != 1)) || [[ ! -f $1 ]]; then
  sed -n '2,/^# shellcheck/{/^# shellcheck/d;s/^# \{0,1\}//p}' "$0"
  exit 2
fi
package=$(realpath "$1")
sample=$(realpath "$(dirname "$0")/../samples/first.sav")
release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
# From where this system has its own packages.
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $release" | head -n 1)

echo "package-test: lintian"
lintian --fail-on error,warning "$package"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp "$package" "$scratch/gradino.deb"
cp "$sample" "$scratch/first.sav"
cat >"$scratch/user.sh" <<'USER'
set -eu
cd
gradino-cli --version
gradino-cli grade /first.sav
gradino-cli library stats | tail -n 1 | grep -q '[1-9]'
test -w ~/.local/share/gradino/schemigenerati.mdb
status=0
QT_QPA_PLATFORM=offscreen timeout 5 gradino || status=$?
test $status = 124
echo "package-test: all is well"
USER
echo "package-test: a system of its own"
mmdebstrap --quiet --variant=minbase --format=null \
  --customize-hook="copy-in $scratch/gradino.deb $scratch/first.sav $scratch/user.sh /" \
  --customize-hook='chroot "$1" apt-get -q -y --no-install-recommends install /gradino.deb >/dev/null 2>&1' \
  --customize-hook='chroot "$1" useradd -m somebody' \
  --customize-hook='chroot "$1" su somebody -c "sh /user.sh"' \
  --customize-hook='chroot "$1" apt-get -q -y remove gradino >/dev/null' \
  "$release" /dev/null "$mirror"
