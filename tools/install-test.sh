#!/usr/bin/env bash
# Installs the build into a folder of its own and checks that it is complete and works there: the programs with the
# library that comes with them, desktop entry, description, icons, manual pages.
#
#   tools/install-test.sh BUILD VERSION
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
build=$1
version=$2

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
share=$place/usr/share
log=$place/log
export HOME=$place/home
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_DATA_HOME XDG_STATE_HOME
mkdir "$HOME"

step() { echo "install-test: $*"; }
fail() {
  echo "install-test: $*" >&2
  exit 1
}
same() { [[ $2 == "$3" ]] || fail "$1 is \"$2\", not \"$3\""; }

cmake --install "$build" --prefix "$place/usr" >"$log" || { cat "$log"; fail "nothing installed"; }

step "the programs"
cli=$place/usr/bin/gradino-cli
same "the version" "$("$cli" --version)" "gradino-cli $version"
same "the grade of a sample" "$("$cli" grade "$source/samples/first.sav" | awk 'NR == 2 { print $1 }')" 2
status=0
QT_QPA_PLATFORM=offscreen timeout 3 "$place/usr/bin/gradino" || status=$?
same "the end of the window after three seconds" $status 124

step "the library"
shipped=$source/library/schemigenerati.mdb
same "what the library holds" "$("$cli" library stats)" "$("$cli" library --file "$shipped" stats)"
[[ -w $HOME/.local/share/gradino/schemigenerati.mdb ]] || fail "the user has no library to write to"
cmp "$shipped" "$share/gradino/schemigenerati.mdb"

step "desktop entry, description, icons"
desktop-file-validate "$share/applications/gradino.desktop" || fail "the desktop entry isn't valid"
entry=$share/applications/gradino.desktop
same "what the entry starts" "$(sed -n 's/^Exec=//p' "$entry" | head -n 1)" "gradino"
action=$(sed -n '/^\[Desktop Action twice\]$/,$p' "$entry")
for key in Name Name\\[it\\]; do
  grep -q "^$key=." <<<"$action" || fail "the action has no $key"
done
larger=$(sed -n 's/^Exec=//p' <<<"$action")
same "what the action starts" "$larger" "env QT_SCALE_FACTOR=2 gradino"
status=0
QT_QPA_PLATFORM=offscreen PATH=$place/usr/bin:$PATH timeout 3 sh -c "$larger" || status=$?
same "the end of the larger window after three seconds" $status 124
appstreamcli validate --no-net "$share/metainfo/arpa.home.gradino.metainfo.xml" >"$log" || {
  cat "$log"
  fail "the description isn't valid"
}
for icon in scalable/apps/gradino.svg {48x48,64x64,128x128,256x256}/apps/gradino.png; do
  [[ -s $share/icons/hicolor/$icon ]] || fail "no icon $icon"
done

step "the manual pages"
for page in gradino gradino-cli; do
  zcat "$share/man/man1/$page.1.gz" >"$place/$page.1"
  mandoc -Tlint -W warning "$place/$page.1"
done
"$source/tools/check-manual.py" "$cli" "$place/gradino-cli.1"

step "the version in the lists of releases"
changelog=$(zcat "$share/doc/gradino/changelog.gz" | sed -n '1s/.*(\(.*\)).*/\1/p')
same "Debian's changelog" "$changelog" "$version"
metainfo=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$share"/metainfo/*.xml | head -n 1)
same "the newest release of the description" "$metainfo" "$version"
grep -q "^## \[\?$version\b" "$source/CHANGELOG.md" || fail "CHANGELOG.md doesn't know $version"
step "all is well"
