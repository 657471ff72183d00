#!/usr/bin/env bash
# The command lines of gradino-cli from outside: whole outputs, errors with their lines, exit statuses, pages,
# progress.
#
#   tests/tools/cli-test.sh GRADINO-CLI TESTDATA
set -euo pipefail
cli=$(readlink -f "$1")
data=$(readlink -f "$2")

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cd "$place"
mkdir here
failures=0

puzzle=..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......
turned=$(rev <<<"$puzzle")
expected="expected a line of 81 cells, or a row of nine, each 1-9 or one of . 0 x X * _ - ? or blank for an empty one"

fail() {
  echo "cli-test: $*" >&2
  failures=$((failures + 1))
}
same() {
  [[ $2 == "$3" ]] && return
  fail "$1"
  diff <(printf '%s\n' "$3") <(printf '%s\n' "$2") >&2 || true
}

# run STATUS STDOUT STDERR COMMAND...: both outputs have to be just that, without their last line ends.
run() {
  local status=0 wanted=("$@")
  "${wanted[@]:3}" >out.txt 2>err.txt </dev/null || status=$?
  same "status of: ${wanted[*]:3}" "$status" "$1"
  same "output of: ${wanted[*]:3}" "$(<out.txt)" "$2"
  same "errors of: ${wanted[*]:3}" "$(<err.txt)" "$3"
}
# Only the files that were there before.
nothingnew() { same "files beside: $1" "$(ls here)" ""; }
refused() {
  run 1 "" "$data/$1" "$cli" convert -o here "$data/${1%%:*}"
  nothingnew "$1"
}
lines() { printf '%s\n' "$@"; }

echo "cli-test: every sample becomes the same puzzle in every form, which is read back"
samples=("$data"/formats/*)
for index in "${!samples[@]}"; do
  # A cell of one pencil mark is filled.
  [[ ${samples[index]} == */pencilmarks.txt ]] && unset "samples[$index]"
done
for form in sav lgc sdm ss sdk; do
  mkdir "$form" back
  "$cli" convert --to "$form" -o "$form" "${samples[@]}" >/dev/null || fail "not all is written as $form"
  "$cli" convert --to sdm -o back "$form"/* >/dev/null || fail "not all of $form is read back"
  for sample in "${samples[@]}"; do
    name=$(basename "${sample%.*}")
    read -r found < <(cat back/"$name"{-1,}.sdm 2>/dev/null) || true
    same "$name of $form" "${found%$'\r'}" "$puzzle"
  done
  rm -r back
done

echo "cli-test: convert writes"
run 0 here/line.sav "" "$cli" convert -o here "$data/formats/line.txt"
same "the bytes of line.sav" "$(od -c here/line.sav | md5sum)" "$(printf '%s\r\n' "$puzzle" | od -c | md5sum)"
run 1 "" "here/line.sav: is there already; --force writes over it" \
  "$cli" convert -o here "$data/formats/line.txt"
run 0 here/line.sav "" "$cli" convert --force -o here "$data/formats/line.txt"
run 1 here/line.sdk "here/line.sdk: is another puzzle's name already; -o names another folder" \
  "$cli" convert --force --to sdk -o here "$data/formats/line.txt" "$data/formats/../formats/line.txt"
same "line.sdk" "$(tr -d '\r' <here/line.sdk)" "[Puzzle]
$(fold -w9 <<<"$puzzle")"
rm -f here/*
run 0 "$(lines here/collection-1.lgc here/collection-2.lgc)" "" \
  "$cli" convert --to lgc -o here "$data/formats/collection.sdm"
same "a drawing" "$(sed -n 's/\r$//;2p;5p' here/collection-2.lgc)" \
  "$(lines '| .     .     .     | .     .     .     | 9     8     .     |' \
    '=============================================================')"
rm -f here/*
run 0 here/two-puzzles.sdm "" "$cli" convert --to sdm -o here "$data/exchange/two-puzzles.sdk"
same "two-puzzles.sdm" "$(tr -d '\r' <here/two-puzzles.sdm)" "$(lines "$puzzle" "$turned")"
rm -f here/*
run 0 ./puzzle.ss "" bash -c "fold -w9 <<<$puzzle | $cli convert --to ss"
same "puzzle.ss" "$(tr -d '\r' <puzzle.ss | sed -n 4,5p)" "$(lines ----------- '8..|...|67.')"

for sample in carriage-returns.txt marked-crlf.sdm semicolons.csv double-bars.txt; do
  "$cli" convert --to sdm -o here "$data/exchange/$sample" >/dev/null || fail "$sample isn't read"
  same "$sample" "$(head -1 "here/${sample%.*}.sdm" | tr -d '\r')" "$puzzle"
  rm -f here/*
done

echo "cli-test: convert refuses"
refused "exchange/long-line.sdm:3: not a puzzle's line: $expected"
refused "exchange/lent-rows.txt:8: a blank or drawn line above this row and 6 rows of its puzzle before it: expected nine rows together, or bands of three, or each row alone"
refused 'exchange/short-game.opensudoku:5: data of a game: expected 81 of the digits 0-9'
refused "exchange/followed.opensudoku:6: more after the end of the XML: expected one element"
refused 'exchange/position.json:4: entry 2 of "cells": expected "position": [row, column], each 0 to 8'
refused "exchange/utf-16.txt:1: a control character: expected a text, in UTF-8 or of single bytes"
: >empty.txt
printf '{"cells": [{"position": [0, 0], "value": 1e999, "fixed": true}]}' >huge.json
run 1 here/line.sav "$(lines "empty.txt:1: nothing there: expected a puzzle" \
  "here: can't be read: Is a directory" "none.txt: can't be read: No such file or directory" \
  "/proc/self/mem: can't be read: Input/output error" \
  "huge.json:1: a number out of range: expected a game as GNOME Sudoku keeps it")" \
  "$cli" convert -o here empty.txt here none.txt /proc/self/mem huge.json "$data/formats/line.txt"
run 1 "" "standard input:1: nothing there: expected a puzzle" "$cli" convert -o here
run 105 "" "$(lines "--output: Directory does not exist: none" "Run with --help for more information.")" \
  "$cli" convert -o none "$data/formats/line.txt"
run 105 "" "$(lines "--to: txt not in {sav,lgc,sdm,ss,sdk}" "Run with --help for more information.")" \
  "$cli" convert --to txt "$data/formats/line.txt"

echo "cli-test: command lines that aren't understood"
misread() { run "$1" "" "$(lines "$2" "Run with --help for more information.")" "${@:3}"; }
commands="grade, count, walk, generate, techniques, library, convert, selftest, sheet"
misread 106 "foo: no such subcommand; there are $commands" "$cli" foo
misread 106 "s: no such subcommand; there are $commands" "$cli" s
misread 106 "graed: no such subcommand; the nearest one is grade" "$cli" graed own.txt
misread 106 "wlak: no such subcommand; the nearest one is walk" "$cli" wlak --lang it
misread 106 "tech: no such subcommand; the nearest one is techniques" "$cli" tech
misread 106 "foo: no such subcommand; there are stats, list, export, check, import, fill" "$cli" library foo
misread 106 "lsit: no such subcommand; the nearest one is list" "$cli" library --file library.mdb lsit
misread 106 "--versoin: no such option" "$cli" --versoin
misread 106 "A subcommand is required" "$cli" library
misread 106 "--output is required" "$cli" sheet
misread 105 "--stop: Value 0 not in range 1 to 2147483647" "$cli" walk --stop 0
misread 105 "--stop: Value third not in range 1 to 2147483647" "$cli" walk --stop third
misread 105 "--most: Value 0 not in range 1 to 2147483647" "$cli" library list --most 0

echo "cli-test: what can't be written leaves no half"
# No file may grow, as on a full disk; only the name of the error differs. (Coverage measurement complains too.)
full() { (trap '' XFSZ && ulimit -f 0 && "$@" 2>&1 | grep -v ^profiling:); }
same "a full disk" "$(full "$cli" convert --force -o here "$data/formats/line.txt")" \
  "here/line.sav: can't be written: File too large"
same "the file that was there" "$(tr -d '\r' <here/line.sav)" "$puzzle"
same "a full disk" "$(full "$cli" sheet "$data/formats/line.txt" -o here/sheet.pdf)" \
  "gradino-cli: here/sheet.pdf: can't be written: File too large"
same "what is left" "$(ls here)" line.sav
rm -f here/*
run 1 "" "gradino-cli: /dev/full: can't be written: No space left on device" \
  "$cli" sheet "$data/formats/line.txt" -o /dev/full
run 1 "" "gradino-cli: here: can't be written: Is a directory" "$cli" sheet "$data/formats/line.txt" -o here
run 1 "" "$(lines "empty.txt:1: nothing there: expected a puzzle" "gradino-cli: no puzzle for the sheet")" \
  "$cli" sheet empty.txt -o here/sheet.pdf
cp "$data/formats/line.txt" own.txt
run 1 "" "gradino-cli: own.txt: is read, and can't be the sheet" "$cli" sheet own.txt -o own.txt
run 1 "" "gradino-cli: --from-library 22: expected a level 0 to 21, or LEVEL:N" \
  "$cli" sheet --library "$data/../../library/schemigenerati.mdb" --from-library 22 -o here/sheet.pdf
nothingnew sheet
run 1 "" "standard output: No space left on device" bash -c "$cli convert --force -o . own.txt >/dev/full"

echo "cli-test: convert keeps going"
# Line by line: two mistakes, other words, a clash, an empty puzzle, two marks.
clash=44${puzzle:2}
lines "$puzzle" "${puzzle%?}" "$turned" "Grid two" "$clash" "$turned" "${puzzle//[1-9]/.}" "${puzzle/./x}" >slips.sdm
run 1 "" "slips.sdm:2: not a puzzle's line: $expected" "$cli" convert -o here slips.sdm
run 1 "here/slips.sdm" "$(lines "slips.sdm:2: not a puzzle's line: $expected" \
  "slips.sdm:4: other words among puzzles of one line each: expected 81 cells in each line" \
  'slips.sdm:8: empty cells are "x" as well as "." in the puzzle that begins here: expected one mark all over a puzzle' \
  "slips.sdm:5: the puzzle that begins here has a 4 in both r1c1 and r1c2: expected no digit twice in a row, column or block" \
  "slips.sdm:7: the puzzle that begins here is empty: expected a digit at least")" \
  "$cli" convert --keep-going --to sdm -o here slips.sdm
same "what is left of the slips" "$(tr -d '\r' <here/slips.sdm)" "$(lines "$puzzle" "$turned" "$turned")"
# Rows: one with a mistake, and one missing.
rows() { fold -w9 <<<"$1" | sed "$2"; echo; }
{ rows "$puzzle" ""; rows "$turned" "3s/./o/"; rows "$turned" ""; } >rows.txt
run 1 "here/rows.sdm" "rows.txt:13: not a puzzle's line: $expected" \
  "$cli" convert --keep-going --to sdm -o here rows.txt
same "what is left of the rows" "$(tr -d '\r' <here/rows.sdm)" "$(lines "$puzzle" "$turned")"
{ rows "$puzzle" ""; rows "$turned" 3d; rows "$turned" ""; } >gaps.txt
run 1 "here/gaps.sdm" "gaps.txt:11: 8 rows from here to line 18: expected nine to a puzzle" \
  "$cli" convert --keep-going --to sdm -o here gaps.txt
same "what is left of the rows" "$(tr -d '\r' <here/gaps.sdm)" "$(lines "$puzzle" "$turned")"
run 1 "" "$(lines "eight.txt:1: 8 rows from here to line 8: expected nine to a puzzle" "eight.txt:1: no puzzle: $expected")" \
  bash -c "fold -w9 <<<$puzzle | head -8 >eight.txt; $cli convert --keep-going -o here eight.txt"
run 1 "here/short-game.sdm" "$data/exchange/short-game.opensudoku:5: data of a game: expected 81 of the digits 0-9" \
  "$cli" convert --keep-going --to sdm -o here "$data/exchange/short-game.opensudoku"
{ rows "$puzzle" "1s/^/[Puzzle]\n/;3d"; rows "$turned" "1s/^/[Puzzle]\n/"; } >sections.sdk
run 1 "here/sections.sdm" "sections.sdk:2: 8 rows from here to line 9: expected nine to a puzzle" \
  "$cli" convert --keep-going --to sdm -o here sections.sdk
same "what is left of the sections" "$(tr -d '\r' <here/sections.sdm)" "$turned"
rm -f here/*
many=$(for _ in {1..50}; do echo "$puzzle"; done)
lines "$many" 5 "$many" | "$cli" convert --keep-going --to sdm -o here >/dev/null 2>err.txt || true
same "one of a hundred and one" "$(wc -l <here/puzzle.sdm) $(<err.txt)" "100 standard input:51: not a puzzle's line: $expected"
control="a control character: expected a text, in UTF-8 or of single bytes"
printf '%s\nab\001\n%s\n\032\n%s\n\032' "$puzzle" "$turned" "$puzzle" >control.sdm
run 1 "here/control.sdm" "$(lines "control.sdm:2: $control" "control.sdm:4: $control")" \
  "$cli" convert --keep-going --to sdm -o here control.sdm
same "what is left of the control characters" "$(tr -d '\r' <here/control.sdm)" "$(lines "$puzzle" "$turned" "$puzzle")"
rm -f here/*

echo "cli-test: convert tells a section that it leaves out"
{ rows "$puzzle" "1s/^/[Puzzle]\n/"; rows "$turned" "1s/^/[Puzle]\n/"; rows "$puzzle" "1s/^/[State]\n/"; } >typo.sdk
run 0 "here/typo.sdm" "typo.sdk:12: a section [Puzle] is left out: expected [Puzzle] or [State]" \
  "$cli" convert --to sdm -o here typo.sdk
run 0 "$("$cli" count <<<"$puzzle")" "typo.sdk:12: una sezione [Puzle] è tralasciata: attesa [Puzzle] o [State]" \
  "$cli" count --lang it typo.sdk
rm -f here/*

echo "cli-test: sheets"
words() { pdftotext -layout "$@" - | tr '\f' '\n' | tr -s ' \n'; }
for perpage in 1:7 2:4 4:2 6:2; do
  for paper in "A4:595.276 x 841.89 pts (A4)" "Letter:612 x 792 pts (letter)"; do
    run 0 "" "" "$cli" sheet --per-page ${perpage%:*} --paper "${paper%%:*}" -o sheet.pdf \
      "$data"/formats/{line,blanks,headings,dashes,dottedframe}.txt "$data/exchange/double-bars.txt"
    same "pages at $perpage" "$(pdfinfo sheet.pdf | awk '/^Pages/ { print $2 }')" ${perpage#*:}
    same "$paper" "$(pdfinfo sheet.pdf | sed -n 's/^Page size: *//p')" "${paper#*:}"
    # Each number once, all within the page.
    same "numbers" "$(words sheet.pdf | grep -o 'Sudoku [0-9]*')" "$(printf 'Sudoku %s\n' 1 2 3 4 5 6 7 | sort -k2 -n)"
  done
done
grep -v -m 13 '^#' "$data/corpus/hard.txt" >hard.sdm
run 0 "" "" "$cli" sheet --per-page 4 --solutions hard.sdm -o en.pdf
run 0 "" "" "$cli" sheet --per-page 4 --solutions --lang it hard.sdm -o it.pdf
"$cli" grade hard.sdm | awk 'NR > 1 { print "level " $1 " difficulty " $2 }' >grades.txt
level() { sed -n "$1p" grades.txt; }
for number in 1 5 13; do
  page=$(((number + 3) / 4))
  english=$(words -f $page -l $page en.pdf) italian=$(words -f $page -l $page it.pdf)
  read -r _ grade _ difficulty <<<"$(level $number)"
  [[ $english == *"Sudoku $number"* ]] || fail "no number $number on page $page"
  grep -q "level $grade, .* · difficulty $difficulty\b" <<<"$english" || fail "no level $grade on page $page"
  grep -q "livello $grade, .* · difficoltà $difficulty\b" <<<"$italian" || fail "no livello $grade on page $page"
done
same "the number of the last page" "$(words -f 4 -l 4 en.pdf | tail -1 | tr -d ' ')" 4
same "pages with solutions" "$(pdfinfo en.pdf | awk '/^Pages/ { print $2 }')" 6
same "heads of the solutions" "$(words en.pdf | grep -cx ' \?Solutions')$(words it.pdf | grep -cx ' \?Soluzioni')" 22
solution=$("$cli" grade --json hard.sdm | sed -n '13s/.*"solution": *"\([1-9]*\)".*/\1/p')
same "the last solution" "$(words -f 6 -l 6 en.pdf | tr -dc '0-9')" "13${solution}6"
cp "$data/../../library/schemigenerati.mdb" .
run 0 "" "" "$cli" sheet --library schemigenerati.mdb --from-library 5:3 -o library.pdf
# The longest caption above the smallest grids, which reach from 77 to 258 and from 354 to 535.
run 0 "" "" "$cli" sheet --library schemigenerati.mdb --from-library 14:6 --per-page 6 --paper Letter --lang it -o narrow.pdf
wide=$(pdftotext -bbox narrow.pdf - | sed -n 's/.*xMin="\([0-9.]*\)" yMin="\([0-9.]*\)" xMax="\([0-9.]*\)".*/\1 \2 \3/p' |
  awk '$2 < 750 && $3 > ($1 < 306 ? 258 : 535)')
same "what is wider than its grid" "$wide" ""
same "levels from the library" "$(words library.pdf | grep -o 'level [0-9]*')" "$(lines "level 5" "level 5" "level 5")"
# An argument after the level is a file, and another level needs the option again.
run 0 "" "" "$cli" sheet --library schemigenerati.mdb --from-library 5:3 "$data/formats/line.txt" -o library.pdf
same "puzzles of the library and of a file" "$(words library.pdf | grep -o 'level [0-9]*')" \
  "$(lines "level 5" "level 5" "level 5" "level 1")"
run 0 "" "" "$cli" sheet --library schemigenerati.mdb --from-library 5 --from-library 3:1 -o library.pdf
same "levels from the library" "$(words library.pdf | grep -o 'level [0-9]*')" "$(lines "level 5" "level 5" "level 3")"
# A puzzle without a grade is described as what it is, on the page and here.
full=$("$cli" grade --json "$data/formats/line.txt" | sed -n 's/.*"solution": *"\([1-9]*\)".*/\1/p')
impossible=123456...........................7........8.................9....................
lines "$puzzle" "${puzzle/45/..}" "$impossible" "$full" >odd.sdm
captions() { words "$1" | sed -n '/Sudoku/{n;p}' | sed 's/^ //;s/ · .*//'; }
run 0 "" "$(lines "odd.sdm:2: more than one solution (Sudoku 2)" "odd.sdm:3: no solution (Sudoku 3)" \
  "odd.sdm:4: full board (Sudoku 4)")" "$cli" sheet --per-page 1 odd.sdm -o odd.pdf
same "captions" "$(captions odd.pdf)" \
  "$(lines "level 1, hidden single" "more than one solution" "no solution" "full board")"
run 0 "" "$(lines "odd.sdm:2: più di una soluzione (Sudoku 2)" "odd.sdm:3: nessuna soluzione (Sudoku 3)" \
  "odd.sdm:4: schema completo (Sudoku 4)")" "$cli" sheet --per-page 1 --lang it odd.sdm -o odd.pdf
same "captions in Italian" "$(captions odd.pdf)" \
  "$(lines "livello 1, singolo nascosto" "più di una soluzione" "nessuna soluzione" "schema completo")"
run 0 "" "standard input:1: full board (Sudoku 1)" bash -c "echo $full | $cli sheet -o odd.pdf"

echo "cli-test: selftest"
run 0 "$(<"$data/exchange/selftest.expected")" "" "$cli" selftest --jobs 2 hard.sdm "$data/formats/line.txt"
run 1 "$(head -1 "$data/exchange/selftest.expected")
0 puzzles: 0 checked, 0 left out for want of a single solution; 0 contradictions" \
  "$(lines "empty.txt:1: nothing there: expected a puzzle" "no puzzle was checked")" "$cli" selftest empty.txt
run 1 "$(head -1 "$data/exchange/selftest.expected")
2 puzzles: 0 checked, 2 left out for want of a single solution; 0 contradictions" \
  "no puzzle was checked" "$cli" selftest <(lines "${puzzle/45/..}" "${turned/54/..}")
"$cli" selftest <(lines "${puzzle/45/..}" "$puzzle") >out.txt || fail "one puzzle of two is enough to be checked"
same "how many were checked" "$(tail -1 out.txt)" \
  "2 puzzles: 1 checked, 1 left out for want of a single solution; 0 contradictions"

"$cli" selftest <(lines "$puzzle") >out.txt || fail "one puzzle isn't checked"
same "one puzzle" "$(tail -1 out.txt)" \
  "1 puzzle: 1 checked, 0 left out for want of a single solution; 0 contradictions"

echo "cli-test: walks and techniques"
# An explanation of several waits, each of which adds to it: every part is printed once.
grep -v -m 40 '^#' "$data/corpus/hard.txt" >explained.sdm
for language in en it; do
  "$cli" walk --explain --lang $language explained.sdm | grep '^       ' | sort >out.txt
  "$cli" walk --explain --json --lang $language explained.sdm | python3 -c '
import json, sys
steps = []
for record in map(json.loads, sys.stdin):
    if record.get("nested"):
        steps[-1] = record["activity"].split("\r\n")
    elif "wait" in record:
        steps.append([])
print("\n".join("       " + line for step in steps for line in step))' | sort >wanted.txt
  (($(wc -l <wanted.txt) > 5000)) || fail "hardly any explanation: $(wc -l <wanted.txt) lines"
  cmp -s out.txt wanted.txt || fail "explanations in $language: $(diff out.txt wanted.txt | head -5)"
done
board="{\"values\": \"${puzzle//./0}\", \"cands\": \"$(printf '1022,%.0s' {1..81})\""
lines "$board}" "$board, \"solution\": null}" "$board, \"solution\": \"\"}" >boards.jsonl
run 0 "$(for _ in 1 2 3; do "$cli" techniques <<<"$board}"; done)" "" "$cli" techniques boards.jsonl
run 0 "$("$cli" techniques boards.jsonl)" "" "$cli" techniques --json boards.jsonl
run 1 "" "standard input:1: solution: not 81 digits" bash -c "$cli techniques <<<'$board, \"solution\": \"1\"}'"

echo "cli-test: grade, count and walk read every form"
for sample in "${samples[@]}"; do
  # Its line has 81 symbols, of which the cells aren't the first.
  [[ $sample == */library.txt ]] && continue
  "$cli" convert --force --to sdm -o here "$sample" >name.txt
  puzzles=$(tr -d '\r' <"$(<name.txt)")
  run 0 "$("$cli" grade <<<"$puzzles")" "" "$cli" grade "$sample"
done
rm -f here/*
tr -d '\n' <"$data/formats/second.opensudoku" >oneline.opensudoku
tr -d '\n' <"$data/formats/savefile.json" >oneline.json
for file in oneline.opensudoku oneline.json; do
  run 0 "$("$cli" grade <<<"$puzzle")" "" "$cli" grade $file
done
run 0 "$("$cli" count <<<"$puzzle")" "" "$cli" count "$data/formats/dottedframe.txt"
{ cat "$data/formats/dottedframe.txt"; printf '\032'; } >dos.txt
run 0 "$("$cli" count <<<"$puzzle")" "" "$cli" count dos.txt
run 0 "$("$cli" walk <<<"$puzzle")" "" bash -c "$cli walk <'$data/formats/rows.csv'"
run 0 "$("$cli" grade --json - <<<"$puzzle"; "$cli" grade --json <<<"$puzzle")" "" \
  "$cli" grade --json --jobs 2 "$data/formats/blanks.txt" "$data/formats/simple.ss"
heading=$("$cli" grade empty.txt)
run 1 "$heading" "$data/exchange/lent-rows.txt:8: a blank or drawn line above this row and 6 rows of its puzzle before it: expected nine rows together, or bands of three, or each row alone" \
  "$cli" grade "$data/exchange/lent-rows.txt"
fold -w9 <<<"$puzzle" | head -8 >eight.txt
run 1 "$heading" "eight.txt:1: 8 rows from here to line 8: expected nine to a puzzle" "$cli" grade eight.txt
# Lines of puzzles are read as such, whatever is between them.
run 1 "$heading" "short.txt:1: 80 of 81 cells" bash -c "echo ${puzzle%?} >short.txt; $cli grade short.txt"
lines "Puzzles 2024" "${puzzle%?}" "" "# of 9" "$puzzle" "Grid 2" "$turned" >mixed.txt
run 1 "$("$cli" grade <<<"$(lines "$puzzle" "$turned")")" "$(lines "mixed.txt:1: 4 of 81 cells" \
  "mixed.txt:2: 80 of 81 cells" "mixed.txt:6: 1 of 81 cells")" "$cli" grade mixed.txt
"$cli" generate --json -n 3 --seed 5 >made.jsonl
run 0 "$("$cli" generate -n 3 --seed 5 | awk 'NR > 1 { print $4 }' | "$cli" grade)" "" "$cli" grade made.jsonl
# Errors are reported in the chosen language.
italian="attesa una linea di 81 celle, o una riga di nove, ciascuna 1-9 o, se vuota, uno di . 0 x X * _ - ? o uno spazio"
lines "$puzzle" "o$puzzle" >letter.sdm
run 1 "$heading" "$(lines "none.txt: impossibile leggere" "short.txt:1: 80 celle su 81" \
  "eight.txt:1: 8 righe da qui alla linea 8: attese nove per schema")" \
  "$cli" grade --lang it none.txt short.txt eight.txt
run 1 "" "$(lines "none.txt: impossibile leggere: No such file or directory" \
  "letter.sdm:2: non è la linea di uno schema: $italian" "gradino-cli: nessuno schema per il foglio")" \
  "$cli" sheet --lang it -o none.pdf none.txt letter.sdm
run 1 "" "gradino-cli: --from-library 22: atteso un livello da 0 a 21, o LIVELLO:N" \
  "$cli" sheet --lang it --library schemigenerati.mdb --from-library 22 -o none.pdf
run 1 "" "own.txt:1: non è un oggetto con values, cands, solution e nishio" "$cli" techniques --lang it own.txt
hint="no board among them: techniques takes JSON objects with values and cands; puzzles are for grade, count and walk"
run 1 "" "$data/formats/dashes.txt: 11 lines and $hint" "$cli" techniques "$data/formats/dashes.txt"
run 1 "" "own.txt:1: not an object with values, cands, solution and nishio" "$cli" techniques own.txt
run 1 "$("$cli" techniques boards.jsonl)" "$(lines \
  "standard input:1: not an object with values, cands, solution and nishio" \
  "standard input:2: not an object with values, cands, solution and nishio" \
  "standard input:6: not an object with values, cands, solution and nishio")" \
  bash -c "(echo 1; echo 2; cat boards.jsonl; echo 3) | $cli techniques"

echo "cli-test: a puzzle that is too much for a table is reported in one line, in the chosen language"
lines ..54..2.....3...867...6...5...6.......8..3.1.....8942.....3.8..2.4..1.3..9....... >large.sdm
fault() { "$cli" grade "$@" large.sdm | sed -n '2s/.*[.]\{6\}  *//p;3,$p'; }
faultof() { "$cli" grade --json "$@" large.sdm | sed 's/.*"fault":"\([^"]*\)".*/\1/'; }
english="X-colors find more than 61 deletions here, more than can be noted. The board stays, but the puzzle could not \
be graded. (table xdeletecell 0 to 60, index 61, in recorddeletions)"
italian="I colori X trovano qui più di 61 eliminazioni, più di quante se ne possano annotare. Lo schema resta, ma non \
è stato possibile valutarlo. (tabella xdeletecell da 0 a 60, indice 61, in recorddeletions)"
same "a fault" "$(fault)" "$english"
same "a fault in Italian" "$(fault --lang it)" "$italian"
same "a fault in an object" "$(faultof)" "$english"
same "a fault in an object, in Italian" "$(faultof --lang it)" "$italian"

echo "cli-test: the library"
puzzles=library.mdb
printf '{"stringa": "%s", "livello": "5", "numeri": "30", "difficolta": "%s", "progressivo": "%s"}\n' \
  "$puzzle" 10 1 "$puzzle" 99999999999 2 "$puzzle" 20 3 >rows.jsonl
run 0 "3 rows brought over, 0 of them without a puzzle" "" "$cli" library --file $puzzles import --all rows.jsonl
same "the two hardest of a level" "$("$cli" library --file $puzzles list --level 5 --most 2 | awk '{ print $2, $3, $5 }')" \
  "$(lines "number score id" "1 99999999999 2" "2 20 3" "of 3 ")"
same "all, in table order" "$("$cli" library --file $puzzles list | awk 'NR > 1 { print $5 }')" "$(lines 1 2 3)"
run 0 "" "" "$cli" sheet --library $puzzles --from-library 5:3 -o library.pdf
same "difficulties" "$(words library.pdf | grep -o 'difficulty [0-9]*')" \
  "$(printf 'difficulty %s\n' 2147483647 20 10)"
run 1 "" "gradino-cli: the library has 3 puzzles of level 5" \
  "$cli" sheet --library $puzzles --from-library 5:4 -o none.pdf
printf '{"stringa": "%s", "livello": "6"}\n' "$puzzle" >row.jsonl
"$cli" library --file one-row.mdb import row.jsonl >/dev/null
run 1 "" "gradino-cli: the library has 1 puzzle of level 6" \
  "$cli" sheet --library one-row.mdb --from-library 6 -o none.pdf
filled() { "$cli" library --file "$1" fill -n 2 "${@:2}" && "$cli" library --file "$1" export; }
same "what a seed makes" "$(filled one.mdb --seed 7)" "$(filled other.mdb --seed 7)"
[[ $(filled third.mdb) != "$(filled fourth.mdb)" ]] || fail "without a seed the same puzzles are made each time"
echo "cli-test: rows of the library go out and come back"
shipped=$data/../../library/schemigenerati.mdb
"$cli" library --file "$shipped" export --level 14 >level.jsonl
"$cli" library --file "$shipped" export --level 14 --csv >level.csv
count=$(wc -l <level.jsonl)
row=$(sed -n 1p level.jsonl)
for form in jsonl csv; do
  run 0 "$count rows brought over, 0 of them without a puzzle" "" "$cli" library --file $form.mdb import level.$form
  same "the rows of $form" "$("$cli" library --file $form.mdb export)" "$(<level.jsonl)"
done
run 0 "$(lines "0 rows brought over, 0 of them without a puzzle" \
  "$count puzzles were there already and were passed over; --all brings them over too")" "" \
  "$cli" library --file csv.mdb import level.jsonl
sed 1q level.jsonl >one.jsonl
run 0 "$(lines "0 righe aggiunte, 0 senza uno schema" \
  "1 schema c'era già ed è stato tralasciato; con --all viene aggiunto anch'esso")" "" \
  "$cli" library --lang it --file csv.mdb import one.jsonl
run 0 "1 row brought over, 0 of them without a puzzle" "" "$cli" library --file csv.mdb import --all one.jsonl
same "with a twin" "$("$cli" library --file csv.mdb export | wc -l)" $((count + 1))
run 0 "$(lines "1 row brought over, 0 of them without a puzzle" \
  "1 puzzle was there already and was passed over; --all brings it over too")" "" \
  "$cli" library --file twins.mdb import <(lines "$row" "$row")
# The file as a spreadsheet saves it: columns in another order, quotes, a byte order mark, a line break in a cell.
printf '\xef\xbb\xbflivello,"stringa",dettaglio\r\n5,"%s","1x5, ""so"" - \n1x2 "\r\n' "$puzzle" >sheet.csv
run 0 "1 row brought over, 0 of them without a puzzle" "" "$cli" library --file sheet.mdb import sheet.csv
same "a spreadsheet's row" "$("$cli" library --file sheet.mdb export | cut -d, -f 1-5)" \
  "{\"progressivo\":\"\",\"stringa\":\"$puzzle\",\"dettaglio\":\"1x5, \\\"so\\\" - \\n1x2 \",\"livello\":\"5\""

echo "cli-test: what is no row is refused with its line, and no library is made"
norow() { lines "$1:$2: no library row as \`library export\` writes it"; }
nothing() { lines "gradino-cli: $1: no row was brought over"; }
lines "$row" 5 "" '[1]' '{}' '{"strings": "x"}' '{"stringa": ["x"]}' '{"stringa": "x"' "$puzzle" >bad.jsonl
run 1 "" "$(for n in 2 4 5 6 7 8 9; do norow bad.jsonl $n; done; nothing bad.jsonl)" \
  "$cli" library --file none.mdb import bad.jsonl
lines "stringa,livello" "$puzzle,5" "$puzzle" "$puzzle,5,6" "$puzzle"$',\xff' "\"$puzzle,5" "$puzzle,5" >bad.csv
run 1 "" "$(for n in 3 4 5 6; do norow bad.csv $n; done; nothing bad.csv)" \
  "$cli" library --file none.mdb import bad.csv
cp "$shipped" some.db
run 1 "" "$(norow some.db 1; nothing some.db)" "$cli" library --file none.mdb import some.db
[[ ! -e none.mdb ]] || fail "a library is made of rows that are none"

echo "cli-test: a library that isn't one"
cp "$data/library/old-library-V2003.mdb" old.mdb
old=old.mdb
oldtext="gradino-cli: \"$old\" is an old library, in the format of a desktop database. Its puzzles go into a new one \
by: gradino-cli library --file NEW.mdb import \"$old\""
for command in stats list export check "fill -n 1"; do
  # shellcheck disable=SC2086
  run 1 "" "$oldtext" "$cli" library --file "$old" $command
done
cmp "$data/library/old-library-V2003.mdb" $old || fail "the old library has changed"
same "what stands beside it" "$(ls old*.mdb*)" "$old"
for command in stats list export check; do
  run 1 "" "gradino-cli: no library missing.mdb" "$cli" library --file missing.mdb $command
  run 1 "" "gradino-cli: nessuna libreria missing.mdb" "$cli" library --lang it --file missing.mdb $command
done
[[ ! -e missing.mdb ]] || fail "a library is made where one was to be looked into"
: >empty.mdb
run 1 "" "gradino-cli: The library \"empty.mdb\" can't be read: the file is damaged or is no library. The file stays as \
it is. Put a sound copy in its place, or give it another name: the next start makes a fresh one." \
  "$cli" library --file empty.mdb stats
# A row that isn't UTF-8, as another program may have stored it.
cp csv.mdb bytes.mdb
bytes=$("$cli" library --file bytes.mdb export | wc -l)
python3 - <<'PYTHON'
import sqlite3
library = sqlite3.connect("bytes.mdb")
library.execute("UPDATE schema SET dettaglio = CAST(X'31E9' AS TEXT), progressivo = 77 WHERE rowid = 2")
library.commit()
PYTHON
for form in "" --csv; do
  status=0
  # shellcheck disable=SC2086
  "$cli" library --file bytes.mdb export $form >out.txt 2>err.txt || status=$?
  same "status of an export with a strange row" $status 1
  same "rows of an export with a strange row" "$(grep -c "\(x\|[.1-9]\{81\}\)" out.txt)" $((bytes - 1))
  same "the report of it" "$(<err.txt)" "row 2 (id 77): left out, its text is not UTF-8"
done

echo "cli-test: a library is filled only when it is said how far"
run 1 "" "gradino-cli: library fill: how many puzzles? Add -n and a number from 1 to 24000" \
  "$cli" library --file none.mdb fill
run 1 "" "gradino-cli: library fill: quanti schemi? Aggiungere -n e un numero da 1 a 24000" \
  "$cli" library --lang it --file none.mdb fill
# Almost a full disk: files may have 12 or 20 blocks of 1024 bytes, and no more.
for room in 4 12 20; do
  status=0
  (trap '' XFSZ && ulimit -f $room && exec "$cli" library --file none.mdb fill -n 200 --seed 1 2>err.txt) || status=$?
  same "status of a fill without room" $status 1
  [[ ! -s none.mdb || $("$cli" library --file none.mdb export | wc -l) -gt 0 ]] || fail "an empty library is left"
  rm -f none.mdb
  same "files of a fill without room" "$(ls none.mdb* 2>/dev/null)" ""
done

echo "cli-test: the library is checked"
same "one puzzle" "$("$cli" library --file sheet.mdb check | tail -1)" "1 puzzle checked, 1 differs"
same "one puzzle, in Italian" "$("$cli" library --file sheet.mdb --lang it check --fix | tail -1)" \
  "1 schema controllato, 1 diverso, 1 corretto"
same "a sound one" "$("$cli" library --file jsonl.mdb check | tail -1)" "$count puzzles checked, 0 differ"

echo "cli-test: without a folder of the user's the shipped library is only read"
mkdir -p prefix/bin prefix/share/gradino
cp "$cli" prefix/bin
cp "$shipped" prefix/share/gradino
: >inthe-way
own=$place/inthe-way/gradino/schemigenerati.mdb
onlyshipped="Your own copy of the library, \"$own\", can't be made: its folder doesn't exist or can't be written to. \
The one that came with the program, \"$(readlink -f prefix)/share/gradino/schemigenerati.mdb\", is used, which can only be \
read: nothing is stored in it."
run 0 "$("$cli" library --file "$shipped" stats)" "$onlyshipped" \
  env XDG_DATA_HOME="$place/inthe-way" prefix/bin/gradino-cli library stats
for command in "fill -n 1" "import --all one.jsonl" "check --fix"; do
  # shellcheck disable=SC2086
  run 1 "" "$(lines "$onlyshipped" "gradino-cli: The library \"$(readlink -f prefix)/share/gradino/schemigenerati.mdb\" \
can only be read: nothing can be stored in it.")" \
    env XDG_DATA_HOME="$place/inthe-way" prefix/bin/gradino-cli library $command
done
cmp "$shipped" prefix/share/gradino/schemigenerati.mdb || fail "the shipped library has changed"

# A better grade is no cure for a second solution.
printf '{"stringa": "%s", "livello": "0"}\n' "${puzzle/45/..}" >rows.jsonl
"$cli" library --file several.mdb import rows.jsonl >/dev/null
for _ in first again; do
  "$cli" library --file several.mdb check --fix >out.txt && fail "a row of several solutions is put right"
done

echo "cli-test: progress on a terminal only"
grep -v -m 500 '^#' "$data/corpus/hard.txt" >long.sdm
run 0 "$("$cli" selftest --jobs 2 long.sdm 2>/dev/null)" "" "$cli" selftest long.sdm
script -qec true /dev/null </dev/null >/dev/null 2>&1 || {
  fail "this needs a pseudo-terminal, and there is none here: mount -t devpts devpts /dev/pts"
  exit 1
}
# A line after a second, which is cleared at the end. How many puzzles take a second depends on the machine.
selftestshown() { script -qec "$cli selftest long.sdm >/dev/null" /dev/null </dev/null || fail "selftest on a terminal"; }
many=500
shown=$(selftestshown)
while [[ -z $shown ]] && ((many < 100000)); do
  cat long.sdm long.sdm >longer.sdm
  mv longer.sdm long.sdm
  ((many *= 2))
  shown=$(selftestshown)
done
[[ $shown == $'\r\033[Kchecked '*" of $many ("*" %)"*$'\r\033[K' ]] || fail "no progress on a terminal, but: $shown"
# Other messages get lines of their own.
(cat long.sdm long.sdm long.sdm long.sdm && echo 123) >short-line.sdm
shown=$(script -qec "$cli walk short-line.sdm >/dev/null" /dev/null </dev/null) || true
[[ $shown == $'\r\033[Kwalked '*$'\r\033[Kshort-line.sdm:'$((4 * many + 1))': 3 of 81 cells'* ]] ||
  fail "no line of its own, but: $shown"
# Rows on the same terminal push the progress line down.
shown=$(script -qec "{ echo $puzzle; sleep 1.2; echo $turned; echo $puzzle; } | $cli grade" /dev/null </dev/null)
[[ $shown == *$'\r\033[Kgraded 2'* ]] || fail "no progress among rows, but: $shown"
same "rows with progress" "$(sed $'s/\r\033\\[K\\(graded [0-9]*\\)\\?//g; s/\r$//' <<<"$shown")" \
  "$("$cli" grade <<<"$(lines "$puzzle" "$turned" "$puzzle")")"
shown=$(script -qec "{ echo $puzzle; sleep 1.2; echo $turned; } | $cli grade --lang it >/dev/null" /dev/null </dev/null)
[[ $shown == $'\r\033[Kvalutati '*$'\r\033[K' ]] || fail "no progress in Italian, but: $shown"
same "a short run on a terminal" "$(script -qec "$cli selftest $data/formats/line.txt >/dev/null" /dev/null </dev/null)" ""

((failures == 0)) || exit 1
echo "cli-test: all well"
