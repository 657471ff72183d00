#!/usr/bin/env bash
# Prints on a print server of its own and checks the result: a complete print test without a printer. Needs Debian's
# cups-daemon, cups-client and poppler-utils. Nothing outside its own folder is touched.
#
#   tools/print-test.sh [BUILD [PAGE.png]]      build/dev; where to keep a picture of the last page
set -euo pipefail

build=$(realpath "${1:-build/dev}")
for program in cupsd lpadmin pdftoppm; do
  PATH=$PATH:/usr/sbin command -v "$program" >/dev/null || {
    echo "print-test: no $program here; Debian: cups-daemon cups-client poppler-utils" >&2
    exit 2
  }
done
PATH=$PATH:/usr/sbin

folder=$(mktemp -d)
server=
cleanup() {
  [[ -z $server ]] || kill "$server" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$folder"
}
trap cleanup EXIT
mkdir "$folder"/{spool,spool/tmp,cache,run,log,state}
user=$(id -un) group=$(id -gn)
if ((EUID == 0)); then
  user=lp group=lp # the server doesn't run its filters as root
  chmod 755 "$folder"
  chown -R root:lp "$folder"
  chmod -R g+rwX "$folder"
fi
cat >"$folder/cups-files.conf" <<CONF
ServerRoot $folder
RequestRoot $folder/spool
TempDir $folder/spool/tmp
CacheDir $folder/cache
StateDir $folder/state
DataDir /usr/share/cups
ServerBin /usr/lib/cups
AccessLog $folder/log/access
ErrorLog $folder/log/error
PageLog $folder/log/page
User $user
Group $group
SystemGroup $(id -gn)
FileDevice Yes
CONF
cat >"$folder/cupsd.conf" <<CONF
Listen $folder/sock
LogLevel warn
PreserveJobFiles Yes
PreserveJobHistory Yes
Browsing Off
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
CONF

cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" &
server=$!
export CUPS_SERVER=$folder/sock
for _ in {1..100}; do
  [[ -S $CUPS_SERVER ]] && break
  sleep 0.1
done
lpadmin -p paper -E -v file:/dev/null 2>/dev/null
lpadmin -d paper

prints() {
  GRADINO_PRINT_TEST=$1 QT_QPA_PLATFORM=offscreen \
    "$(dirname "$0")/../tests/tools/at-home.sh" "$folder" "$build/tests/window_printing" "$2"
}
prints 1 onpaper

# Both pages are in the spool as the program sent them.
mapfile -t pages < <(find "$folder/spool" -name 'd*-*' | sort)
if ((${#pages[@]} != 2)); then
  echo "print-test: ${#pages[@]} pages arrived, not 2" >&2
  exit 1
fi

# A stopped queue prints nothing: the program says so, and sends no page.
cupsreject paper
prints rejecting refused
cupsaccept paper
cupsdisable paper
prints stopped refused
if [[ $(find "$folder/spool" -name 'd*-*' | wc -l) != 2 ]]; then
  echo "print-test: a page was sent to a queue that doesn't print" >&2
  exit 1
fi
pdftoppm -png -singlefile -r 96 "${pages[-1]}" "$folder/page"
[[ -z ${2:-} ]] || cp "$folder/page.png" "$2"
echo "print-test: 2 pages arrived, and none where none is printed"
