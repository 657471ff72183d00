// Forcing chains: what is found, shown, argued, logged and done, what ends a search, and what comes in
// between.
#include "forcing.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "chains.h"
#include "chainsteps.h"
#include "commands.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "light.h"
#include "log.h"
#include "menu.h"
#include "nodequeue.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- examples ---------------------------------------------------------------------------------------------

/// One wait of the explanation: what it adds to the text, and the pencil mark that it paints (cell * 10 +
/// digit, 0: none).
struct Told {
  Said adds;
  int mark;
};

/// A board on which a forcing chain is the next step.
struct FoundForcing {
  std::string name;
  Drawn drawn;
  int cell, digit;  ///< what the step takes away
  Said hint;
  std::vector<int> yellow;
  std::vector<Said> log;
  std::vector<Told> lesson;
};

Said same(const std::string& text) {
  return {text, text};
}

const std::string forcingtitleit =
    "CATENA FORZATA - LIVELLO 20\r\n"
    "Si deve trovare una catena di conseguenze che porti ad una contraddizione\r\n"
    "==============================================\r\n";
const std::string forcingtitleen =
    "FORCING CHAIN - LEVEL 20\r\n"
    "We must find a chain that brings to a contradiction\r\n"
    "==============================================\r\n";

// Two paths as they come: a cell with two candidates, and a column with two places.
constexpr Drawn plainboard = {
    "19 28 19 4 5 6 3 78 278 "
    "3 245 45 7 1 8 56 9 256 "
    "6 58 7 3 2 9 1 4 58 "
    "257 1 456 58 9 257 45678 5678 3 "
    "2579 345 8 6 37 2357 4579 57 1 "
    "579 356 569 1 378 4 56789 2 6789 "
    "158 7 1356 2 4 35 5689 1568 689 "
    "4 56 2 9 678 1 5678 3 5678 "
    "158 9 1356 58 3678 357 2 15678 4",
    "129456378345718692687329145214895763938672451756134829571243986462981537893567214"};

const FoundForcing plain = {
    .name = "Plain",
    .drawn = plainboard,
    .cell = at(8, 7),
    .digit = 6,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 6 , r8c7",
             "FORCING CHAIN, contradiction found number 6 , r8c7"},
    .yellow = {at(8, 2), at(3, 2), at(3, 9), at(2, 7)},
    .log =
        {
            {"CATENA FORZATA, numero 6 , r8c7", "FORCING CHAIN, number 6 , r8c7"},
            {" * Se r8c7=6 allora", " * If r8c7=6 then"},
            same(" * r8c2 = 5"),
            same(" * r3c2 = 8"),
            same(" * r3c9 <> 8"),
            same(" * r8c7 = 6"),
            same(" * r2c7 = 5"),
            same(" * r3c9 = 8"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r3c9 allo stesso tempo = e <> 8", " * cell r3c9 is at the same time = and <> 8"},
            {" * elimino 6 da r8c7", " * deleting 6 from r8c7"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r8c7=6", forcingtitleen + "if r8c7=6"}, at(8, 7) * 10 + 6},
            {same("\r\nr8c2 = 5"), at(8, 2) * 10 + 5},
            {same("\r\nr3c2 = 8"), at(3, 2) * 10 + 8},
            {same("\r\nr3c9 <> 8"), at(3, 9) * 10 + 8},
            {same("\r\nr8c7 = 6"), at(8, 7) * 10 + 6},
            {same("\r\nr2c7 = 5"), at(2, 7) * 10 + 5},
            {same("\r\nr3c9 = 8"), at(3, 9) * 10 + 8},
            {{"\r\nCONTRADDIZIONE\r\ncell r3c9 è allo stesso tempo = e <> 8",
              "\r\nCONTRADICTION\r\ncell r3c9 is at the same time = and <> 8"},
             0},
            {{"\r\nposso, perciò, eliminare 6 da r8c7", "\r\ntherefore, I can delete 6 from r8c7"}, 0},
        },
};

// The second path ends in the last place of a column: the paths of the places ruled out are joined.
constexpr Drawn columnsingleboard = {
    "1 2 7 4 356 56 36 8 9 "
    "35 4 6 7 8 9 1 2 35 "
    "35 8 9 136 136 2 7 345 46 "
    "26 16 3 12568 4 1568 9 7 2568 "
    "246 5 8 26 9 7 2346 1 236 "
    "7 9 14 12568 1256 3 2456 45 24568 "
    "48 3 145 9 7 18 245 6 1245 "
    "9 16 145 12356 1256 156 8 345 7 "
    "68 7 2 13568 1356 4 35 9 13",
    "127435689346789125589162734213546978658297413794813256431978562965321847872654391"};

const FoundForcing columnsingle = {
    .name = "Columnsingle",
    .drawn = columnsingleboard,
    .cell = at(8, 5),
    .digit = 1,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 1 , r8c5",
             "FORCING CHAIN, contradiction found number 1 , r8c5"},
    .yellow = {at(8, 2), at(4, 2), at(4, 6), at(7, 6), at(8, 6)},
    .log =
        {
            {"CATENA FORZATA, numero 1 , r8c5", "FORCING CHAIN, number 1 , r8c5"},
            {" * Se r8c5=1 allora", " * If r8c5=1 then"},
            same(" * r8c2 <> 1"),
            same(" * r4c2 = 1"),
            same(" * r4c6 <> 1"),
            same(" * r8c5 = 1"),
            same(" * r7c6 <> 1"),
            same(" * r8c5 = 1"),
            same(" * r8c6 <> 1"),
            same(" * r4c6 = 1"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r4c6 allo stesso tempo = e <> 1", " * cell r4c6 is at the same time = and <> 1"},
            {" * elimino 1 da r8c5", " * deleting 1 from r8c5"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r8c5=1", forcingtitleen + "if r8c5=1"}, at(8, 5) * 10 + 1},
            {same("\r\nr8c2 <> 1"), at(8, 2) * 10 + 1},
            {same("\r\nr4c2 = 1"), at(4, 2) * 10 + 1},
            {same("\r\nr4c6 <> 1"), at(4, 6) * 10 + 1},
            {same("\r\nr8c5 = 1"), at(8, 5) * 10 + 1},
            {same("\r\nr7c6 <> 1"), at(7, 6) * 10 + 1},
            {same("\r\nr8c5 = 1"), at(8, 5) * 10 + 1},
            {same("\r\nr8c6 <> 1"), at(8, 6) * 10 + 1},
            {same("\r\nr4c6 = 1"), at(4, 6) * 10 + 1},
            {{"\r\nCONTRADDIZIONE\r\ncell r4c6 è allo stesso tempo = e <> 1",
              "\r\nCONTRADICTION\r\ncell r4c6 is at the same time = and <> 1"},
             0},
            {{"\r\nposso, perciò, eliminare 1 da r8c5", "\r\ntherefore, I can delete 1 from r8c5"}, 0},
        },
};

// The same in a row, behind three places.
constexpr Drawn rowsingleboard = {
    "5 3 1 2 4 6 7 8 9 "
    "47 6 8 3 59 79 2 45 1 "
    "247 479 249 58 158 17 3 456 46 "
    "3468 2 7 4568 568 48 1 9 346 "
    "1346 149 469 7 19 129 8 2346 5 "
    "1468 14589 4569 468 3 129 46 246 7 "
    "12468 148 246 468 7 5 9 1346 346 "
    "1467 1457 456 9 2 3 456 146 8 "
    "9 458 3 1 68 48 456 7 2",
    "531246789468397251279581346327658194694712835815439627142875963756923418983164572"};

const FoundForcing rowsingle = {
    .name = "Rowsingle",
    .drawn = rowsingleboard,
    .cell = at(4, 1),
    .digit = 4,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 4 , r4c1",
             "FORCING CHAIN, contradiction found number 4 , r4c1"},
    .yellow = {at(2, 1), at(2, 8), at(5, 8), at(5, 1), at(5, 2), at(5, 3)},
    .log =
        {
            {"CATENA FORZATA, numero 4 , r4c1", "FORCING CHAIN, number 4 , r4c1"},
            {" * Se r4c1=4 allora", " * If r4c1=4 then"},
            same(" * r2c1 <> 4"),
            same(" * r2c8 = 4"),
            same(" * r5c8 <> 4"),
            same(" * r4c1 = 4"),
            same(" * r5c1 <> 4"),
            same(" * r4c1 = 4"),
            same(" * r5c2 <> 4"),
            same(" * r4c1 = 4"),
            same(" * r5c3 <> 4"),
            same(" * r5c8 = 4"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r5c8 allo stesso tempo = e <> 4", " * cell r5c8 is at the same time = and <> 4"},
            {" * elimino 4 da r4c1", " * deleting 4 from r4c1"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r4c1=4", forcingtitleen + "if r4c1=4"}, at(4, 1) * 10 + 4},
            {same("\r\nr2c1 <> 4"), at(2, 1) * 10 + 4},
            {same("\r\nr2c8 = 4"), at(2, 8) * 10 + 4},
            {same("\r\nr5c8 <> 4"), at(5, 8) * 10 + 4},
            {same("\r\nr4c1 = 4"), at(4, 1) * 10 + 4},
            {same("\r\nr5c1 <> 4"), at(5, 1) * 10 + 4},
            {same("\r\nr4c1 = 4"), at(4, 1) * 10 + 4},
            {same("\r\nr5c2 <> 4"), at(5, 2) * 10 + 4},
            {same("\r\nr4c1 = 4"), at(4, 1) * 10 + 4},
            {same("\r\nr5c3 <> 4"), at(5, 3) * 10 + 4},
            {same("\r\nr5c8 = 4"), at(5, 8) * 10 + 4},
            {{"\r\nCONTRADDIZIONE\r\ncell r5c8 è allo stesso tempo = e <> 4",
              "\r\nCONTRADICTION\r\ncell r5c8 is at the same time = and <> 4"},
             0},
            {{"\r\nposso, perciò, eliminare 4 da r4c1", "\r\ntherefore, I can delete 4 from r4c1"}, 0},
        },
};

// And in a block.
constexpr Drawn blocksingleboard = {
    "138 2 13 6 58 7 358 4 9 "
    "5 378 367 4 289 239 1 2368 236 "
    "468 9 346 1 258 23 3568 2368 7 "
    "1279 17 1279 3 6 5 789 78 4 "
    "379 6 8 27 29 4 379 1 5 "
    "3479 5 3479 78 1 89 2 367 36 "
    "126 13 1236 9 7 26 4 5 8 "
    "26789 78 2679 5 4 268 367 2367 1 "
    "2678 4 5 28 3 1 67 9 26",
    "123657849576489123894123567217365984368294715459718236631972458982546371745831692"};

const FoundForcing blocksingle = {
    .name = "Blocksingle",
    .drawn = blocksingleboard,
    .cell = at(2, 6),
    .digit = 2,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 2 , r2c6",
             "FORCING CHAIN, contradiction found number 2 , r2c6"},
    .yellow = {at(2, 9), at(9, 9), at(9, 4), at(7, 6), at(8, 6)},
    .log =
        {
            {"CATENA FORZATA, numero 2 , r2c6", "FORCING CHAIN, number 2 , r2c6"},
            {" * Se r2c6=2 allora", " * If r2c6=2 then"},
            same(" * r2c9 <> 2"),
            same(" * r9c9 = 2"),
            same(" * r9c4 <> 2"),
            same(" * r2c6 = 2"),
            same(" * r7c6 <> 2"),
            same(" * r2c6 = 2"),
            same(" * r8c6 <> 2"),
            same(" * r9c4 = 2"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r9c4 allo stesso tempo = e <> 2", " * cell r9c4 is at the same time = and <> 2"},
            {" * elimino 2 da r2c6", " * deleting 2 from r2c6"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r2c6=2", forcingtitleen + "if r2c6=2"}, at(2, 6) * 10 + 2},
            {same("\r\nr2c9 <> 2"), at(2, 9) * 10 + 2},
            {same("\r\nr9c9 = 2"), at(9, 9) * 10 + 2},
            {same("\r\nr9c4 <> 2"), at(9, 4) * 10 + 2},
            {same("\r\nr2c6 = 2"), at(2, 6) * 10 + 2},
            {same("\r\nr7c6 <> 2"), at(7, 6) * 10 + 2},
            {same("\r\nr2c6 = 2"), at(2, 6) * 10 + 2},
            {same("\r\nr8c6 <> 2"), at(8, 6) * 10 + 2},
            {same("\r\nr9c4 = 2"), at(9, 4) * 10 + 2},
            {{"\r\nCONTRADDIZIONE\r\ncell r9c4 è allo stesso tempo = e <> 2",
              "\r\nCONTRADICTION\r\ncell r9c4 is at the same time = and <> 2"},
             0},
            {{"\r\nposso, perciò, eliminare 2 da r2c6", "\r\ntherefore, I can delete 2 from r2c6"}, 0},
        },
};

// The second path ends in the last candidate of a cell with four.
constexpr Drawn nakedsingleboard = {
    "1 349 6 2 349 3459 5789 79 389 "
    "349 24 8 3469 7 34569 259 19 139 "
    "7 5 239 1 39 8 269 69 4 "
    "349 3469 5 7 489 3469 1 2 689 "
    "8 123469 239 5 139 23469 479 4679 69 "
    "49 12469 7 469 1489 2469 4689 3 5 "
    "5 7 1 349 6 349 49 8 2 "
    "6 8 49 49 2 1 3 5 7 "
    "2 39 349 8 5 7 469 1469 169",
    "136245798428679513759138264345786129812593476967412835571364982684921357293857641"};

const FoundForcing nakedsingle = {
    .name = "Nakedsingle",
    .drawn = nakedsingleboard,
    .cell = at(5, 7),
    .digit = 9,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 9 , r5c7",
             "FORCING CHAIN, contradiction found number 9 , r5c7"},
    .yellow = {at(4, 9), at(6, 7), at(7, 7), at(5, 9)},
    .log =
        {
            {"CATENA FORZATA, numero 9 , r5c7", "FORCING CHAIN, number 9 , r5c7"},
            {" * Se r5c7=9 allora", " * If r5c7=9 then"},
            same(" * r4c9 <> 9"),
            same(" * r4c9 = 8"),
            same(" * r6c7 <> 8"),
            same(" * r5c7 = 9"),
            same(" * r7c7 = 4"),
            same(" * r6c7 <> 4"),
            same(" * r5c7 = 9"),
            same(" * r5c9 = 6"),
            same(" * r6c7 <> 6"),
            same(" * r5c7 = 9"),
            same(" * r6c7 <> 9"),
            same(" * r6c7 = 8"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r6c7 allo stesso tempo = e <> 8", " * cell r6c7 is at the same time = and <> 8"},
            {" * elimino 9 da r5c7", " * deleting 9 from r5c7"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r5c7=9", forcingtitleen + "if r5c7=9"}, at(5, 7) * 10 + 9},
            {same("\r\nr4c9 <> 9"), at(4, 9) * 10 + 9},
            {same("\r\nr4c9 = 8"), at(4, 9) * 10 + 8},
            {same("\r\nr6c7 <> 8"), at(6, 7) * 10 + 8},
            {same("\r\nr5c7 = 9"), at(5, 7) * 10 + 9},
            {same("\r\nr7c7 = 4"), at(7, 7) * 10 + 4},
            {same("\r\nr6c7 <> 4"), at(6, 7) * 10 + 4},
            {same("\r\nr5c7 = 9"), at(5, 7) * 10 + 9},
            {same("\r\nr5c9 = 6"), at(5, 9) * 10 + 6},
            {same("\r\nr6c7 <> 6"), at(6, 7) * 10 + 6},
            {same("\r\nr5c7 = 9"), at(5, 7) * 10 + 9},
            {same("\r\nr6c7 <> 9"), at(6, 7) * 10 + 9},
            {same("\r\nr6c7 = 8"), at(6, 7) * 10 + 8},
            {{"\r\nCONTRADDIZIONE\r\ncell r6c7 è allo stesso tempo = e <> 8",
              "\r\nCONTRADICTION\r\ncell r6c7 is at the same time = and <> 8"},
             0},
            {{"\r\nposso, perciò, eliminare 9 da r5c7", "\r\ntherefore, I can delete 9 from r5c7"}, 0},
        },
};

// Ten steps and more: the shortest chain of the whole board.
constexpr Drawn longestboard = {
    "1 349 6 2 349 3459 5789 79 389 "
    "349 2 8 346 7 34569 59 19 139 "
    "7 5 39 1 39 8 2 6 4 "
    "34 3469 5 7 489 3469 1 2 689 "
    "8 1346 2 5 139 3469 47 479 69 "
    "49 1469 7 469 148 2 468 3 5 "
    "5 7 1 349 6 349 49 8 2 "
    "6 8 49 49 2 1 3 5 7 "
    "2 39 349 8 5 7 469 149 16",
    "136245798428679513759138264345786129812593476967412835571364982684921357293857641"};

const FoundForcing longest = {
    .name = "Longest",
    .drawn = longestboard,
    .cell = at(7, 4),
    .digit = 9,
    .hint = {"CATENA FORZATA, trovata contradizione, numero 9 , r7c4",
             "FORCING CHAIN, contradiction found number 9 , r7c4"},
    .yellow = {at(8, 4), at(6, 4), at(6, 7), at(1, 7), at(2, 4), at(2, 9), at(1, 9)},
    .log =
        {
            {"CATENA FORZATA, numero 9 , r7c4", "FORCING CHAIN, number 9 , r7c4"},
            {" * Se r7c4=9 allora", " * If r7c4=9 then"},
            same(" * r8c4 = 4"),
            same(" * r6c4 <> 4"),
            same(" * r6c4 = 6"),
            same(" * r6c7 <> 6"),
            same(" * r6c7 = 8"),
            same(" * r1c7 <> 8"),
            same(" * r7c4 = 9"),
            same(" * r7c4 <> 3"),
            same(" * r2c4 = 3"),
            same(" * r2c9 <> 3"),
            same(" * r1c9 = 3"),
            same(" * r1c9 <> 8"),
            same(" * r1c7 = 8"),
            {" * CONTRADDIZIONE", " * CONTRADICTION"},
            {" * cell r1c7 allo stesso tempo = e <> 8", " * cell r1c7 is at the same time = and <> 8"},
            {" * elimino 9 da r7c4", " * deleting 9 from r7c4"},
        },
    .lesson =
        {
            {{forcingtitleit + "se r7c4=9", forcingtitleen + "if r7c4=9"}, at(7, 4) * 10 + 9},
            {same("\r\nr8c4 = 4"), at(8, 4) * 10 + 4},
            {same("\r\nr6c4 <> 4"), at(6, 4) * 10 + 4},
            {same("\r\nr6c4 = 6"), at(6, 4) * 10 + 6},
            {same("\r\nr6c7 <> 6"), at(6, 7) * 10 + 6},
            {same("\r\nr6c7 = 8"), at(6, 7) * 10 + 8},
            {same("\r\nr1c7 <> 8"), at(1, 7) * 10 + 8},
            {same("\r\nr7c4 = 9"), at(7, 4) * 10 + 9},
            {same("\r\nr7c4 <> 3"), at(7, 4) * 10 + 3},
            {same("\r\nr2c4 = 3"), at(2, 4) * 10 + 3},
            {same("\r\nr2c9 <> 3"), at(2, 9) * 10 + 3},
            {same("\r\nr1c9 = 3"), at(1, 9) * 10 + 3},
            {same("\r\nr1c9 <> 8"), at(1, 9) * 10 + 8},
            {same("\r\nr1c7 = 8"), at(1, 7) * 10 + 8},
            {{"\r\nCONTRADDIZIONE\r\ncell r1c7 è allo stesso tempo = e <> 8",
              "\r\nCONTRADICTION\r\ncell r1c7 is at the same time = and <> 8"},
             0},
            {{"\r\nposso, perciò, eliminare 9 da r7c4", "\r\ntherefore, I can delete 9 from r7c4"}, 0},
        },
};

// ---- each of them -----------------------------------------------------------------------------------------

class EachForcing : public ChainBoards,
                    public testing::WithParamInterface<std::tuple<const FoundForcing*, int>> {
 protected:
  EachForcing() {
    speak(std::get<int>(GetParam()));
    draw(one().drawn);
    take(std::to_string(one().digit), {one().cell});
    after = theboard();
    drawagain();
    before = theboard();
  }
  static const FoundForcing& one() { return *std::get<const FoundForcing*>(GetParam()); }
  void drawagain() {
    draw(one().drawn);
    nishioflag = true;
  }

  static Frame shownframe() {
    return {.tag = "xlinks",
            .hint = one().hint.text(),
            .number = "",
            .activity = {},
            .Text1 = {},
            .Text2 = boxes(one().yellow, "yellow"),
            .candidate = {{one().cell * 10 + one().digit, "red"}}};
  }
  /// At the k-th wait of the explanation, from 0.
  static Frame arguedframe(std::size_t k) {
    Frame frame = shownframe();
    std::string text;
    for (std::size_t i = 0; i <= k; ++i) {
      text += one().lesson[i].adds.text();
      if (one().lesson[i].mark != 0) frame.candidate[one().lesson[i].mark] = "green";
    }
    frame.activity = text;
    return frame;
  }
  /// Help, and go at the waits of the explanation but the last, which is answered so.
  void explained(const Act& last, std::size_t waits) {
    player.script = {help};
    player.script.insert(player.script.end(), waits - 1, go);
    player.script.push_back(last);
  }
  static std::vector<std::string> loglines() {
    std::vector<std::string> lines;
    for (const Said& line : one().log) lines.push_back(line.text());
    return lines;
  }

  /// The step writes its sentence into the log, without a board behind it.
  static void expectlogged() {
    EXPECT_EQ(Frmlog::Text3.text, "\r\n" + one().hint.text());
    EXPECT_EQ(logcount, 1);
    EXPECT_EQ(logvalues(1), "");
    EXPECT_EQ(logcands(1), "");
  }
  void expectdone() const {
    EXPECT_EQ(theboard(), after);
    expectmarks(after);
    expectnopaint();
    EXPECT_EQ(frmmain::txthint.text, one().hint.text());
    EXPECT_EQ(frmmain::Text5.text, "");
    EXPECT_TRUE(foundflag);
    EXPECT_FALSE(nishioflag);
    expectlogged();
  }

  Board before, after;
};

TEST_P(EachForcing, IsTheNextStepShowsItselfAndOnGoDeletes) {
  player.script = {[&] {
                     EXPECT_EQ(theboard(), before);
                     EXPECT_TRUE(foundflag);
                     EXPECT_FALSE(nishioflag);
                     expectlogged();
                   },
                   go};
  nishioflag = false;  // or the loops would look further
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], shownframe());
  expectdone();
}

TEST_P(EachForcing, AStopLeavesBoardAndColours) {
  nishioflag = false;
  player.script = {stop};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(look(), shownframe());
  EXPECT_EQ(theboard(), before);
  expectmarks(before);
  EXPECT_TRUE(foundflag);
  expectlogged();
}

TEST_P(EachForcing, TheChainKeyRunsItBehindTheLoops) {
  nishioflag = false;
  player.script = {go};
  for (const KeyRow& row : toolbar1rows())
    if (row.control == &frmmain::Toolbar1::chain) player.event([&row] { Toolbar1_ButtonClick(row); });
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0], shownframe());
  expectdone();
}

TEST_P(EachForcing, TheStepEndsTheWideningOfTheLoops) {
  player.script = {stop};
  player.event(frmmain::stepforcing);
  EXPECT_FALSE(nishioflag);
}

TEST_P(EachForcing, InALongJobTheLineOfTheStepIsNotCounted) {
  const Job job("conta");
  player.script = {go};
  player.event(frmmain::stepforcing);
  EXPECT_EQ(Frmlog::Text3.text, "\r\n" + one().hint.text());
  EXPECT_EQ(logcount, 0);
}

TEST_P(EachForcing, TwinLogsCountsAndDeletes) {
  foundflag = false;
  expecttwin(frmgenerazione::gradeforcing, 21, loglines(), after);
  EXPECT_TRUE(logflags(1));
  EXPECT_FALSE(nishioflag);
  EXPECT_TRUE(player.boxes.empty());
}

TEST_P(EachForcing, TwinInALongJobWritesAllItsLinesButCountsNoHeadline) {
  expecttwininajob(frmgenerazione::gradeforcing, 21, loglines());
  EXPECT_EQ(theboard(), after);
}

TEST_P(EachForcing, ExplanationArguesAndItsGoCarriesTheStepOut) {
  explained(go, one().lesson.size());
  player.event(frmmain::stepforcing);
  ASSERT_EQ(player.frames.size(), 1 + one().lesson.size());
  EXPECT_EQ(player.frames[0], shownframe());
  for (std::size_t k = 0; k < one().lesson.size(); ++k) EXPECT_EQ(player.frames[1 + k], arguedframe(k)) << k;
  EXPECT_FALSE(frmactivity::visible);
  expectdone();
}

TEST_P(EachForcing, ExplanationDeletesNothingItselfAndLeavesAWhiteBoard) {
  explained(go, one().lesson.size());
  player.script.front() = [&] {
    foundflag = false;
    frmmain::Text1(77).back = magenta;
    frmmain::Text2(78).back = orange;
    help();
    EXPECT_TRUE(foundflag);
    EXPECT_EQ(theboard(), before);
    EXPECT_FALSE(frmactivity::visible);
    expectnopaint();
  };
  player.event(frmmain::stepforcing);
  EXPECT_TRUE(player.script.empty());
}

TEST_P(EachForcing, AStopAtAnyWaitOfTheExplanationLeavesEverythingAsItStands) {
  for (std::size_t k = 0; k < one().lesson.size(); ++k) {
    drawagain();
    clearcolours();
    player.frames.clear();
    explained(stop, k + 1);
    player.event(frmmain::stepforcing);
    ASSERT_EQ(player.frames.size(), 2 + k);
    EXPECT_EQ(look(), arguedframe(k)) << k;
    EXPECT_EQ(theboard(), before);
    expectmarks(before);
    EXPECT_TRUE(foundflag);
  }
}

// Nothing keeps a search out of a wait: saving grades.
TEST_P(EachForcing, ASearchInBetweenDoesNotTouchTheChainOnShow) {
  const auto another = [this] {
    put(emptyboard);
    leave({{at(1, 1), "12"}, {at(1, 2), "13"}, {at(2, 1), "23"}, {at(9, 1), "19"}});
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell) = "9";
    frmgenerazione::gradeforcing();
    EXPECT_NE(linkcell(0), one().cell);
    draw(one().drawn);
    Frmlog::Text3.text = "\r\n" + one().hint.text();
    logcount = 1;
    logvalues(1) = logcands(1) = "";
    nishioflag = false;
  };
  explained(go, one().lesson.size());
  player.script.insert(player.script.begin() + 1, another);
  player.event(frmmain::stepforcing);
  ASSERT_EQ(player.frames.size(), 2 + one().lesson.size());
  for (std::size_t k = 0; k < one().lesson.size(); ++k) EXPECT_EQ(player.frames[2 + k], arguedframe(k)) << k;
  expectdone();
}

INSTANTIATE_TEST_SUITE_P(Forcing, EachForcing,
                         testing::Combine(testing::Values(&plain, &columnsingle, &rowsingle, &blocksingle,
                                                          &nakedsingle, &longest),
                                          testing::Values(english, italian)),
                         [](auto& p) {
                           return std::get<0>(p.param)->name +
                                  (std::get<1>(p.param) == english ? "English" : "Italian");
                         });

// ---- the search once more ---------------------------------------------------------------------------------

std::string slotread(int cell, int digit, bool flag, std::size_t path) {
  return std::to_string(cell) + (flag ? "=" : "<>") + std::to_string(digit) + " " + std::to_string(path);
}

/// As literally as it can be told: paths are texts, twins are looked up one by one. It reads the board's
/// tables and shares nothing else with the search that it judges.
class LiteralForcing {
 public:
  int steps = 80;     ///< chainsteps
  std::string chain;  ///< of the last hypothesis that led to a contradiction
  int tried = 0, walkedfull = 0, queuefull = 0, toolong = 0;  ///< hypotheses, and how they ended
  std::vector<int> lengths;                                   ///< of each, in the order of the scan
  std::array<std::string, 261> slots;                         ///< of the last hypothesis's queue

  void all() {
    steps = 80;
    int best = 80, minimum = 1, maximum = 2, bestdigit = 0, bestcell = 0, most = 0;
    do {
      for (int cell = 0; cell <= 80; ++cell) {
        const int n = static_cast<int>(candstr(cell).size());
        most = std::max(most, n);
        if (n > maximum || n <= minimum) continue;
        for (char d : candstr(cell)) {
          if (solutiontext(cell) == std::string(1, d)) continue;
          hypothesis(d - '0', cell);
          lengths.push_back(steps);
          if (steps < 10) return;
          if (steps < best) best = steps, bestdigit = d - '0', bestcell = cell;
        }
      }
      ++minimum, ++maximum;
    } while (maximum <= most + 1);
    if (best < 20) hypothesis(bestdigit, bestcell);
  }

  void hypothesis(int digit, int cell) {
    ++tried;
    steps = limit_ = 80;
    state_ = {};
    nodes_.clear();
    append({cell, digit, true, "0,"});
    state_[cell * 10 + digit] = {1, "0,"};
    try {
      std::size_t i = 0;
      for (; i < nodes_.size() && nodes_.size() <= 250; ++i)
        if (static_cast<double>(nodes_[i].path.size()) / 3 < limit_) expand(nodes_[i]);
      if (i < nodes_.size()) ++walkedfull;
    } catch (const Over&) {
    }
  }

 private:
  struct Node {
    int cell, digit;
    bool flag;
    std::string path;
  };
  struct State {
    int truth = 0;  ///< 1 true, -1 false
    std::string path;
  };
  struct Over {};

  State& state(int cell, int digit) { return state_[static_cast<std::size_t>(cell * 10 + digit)]; }
  static int other(int cell, int digit) {
    return candstr(cell)[0] - '0' == digit ? candstr(cell)[1] - '0' : candstr(cell)[0] - '0';
  }
  /// The places of a digit in the row, the column and the block of a cell.
  static std::array<std::vector<int>, 3> houses(int cell, int digit) {
    std::array<std::vector<int>, 3> all;
    for (char p : rowpos(digit, cell / 9).text()) all[0].push_back(cell / 9 * 9 + (p - '0'));
    for (char p : colpos(digit, cell % 9).text()) all[1].push_back((p - '0') * 9 + cell % 9);
    const int block = cell / 27 * 3 + cell % 9 / 3;
    for (char p : blockpos(digit, block).text()) all[2].push_back(blockcells(block, p - '0'));
    return all;
  }

  void expand(const Node node) {  // a copy: the queue grows
    const auto& [c, x, t, p] = node;
    const std::string own = candstr(c);
    if (t) {
      for (char y : own)
        if (y - '0' != x) make(c, y - '0', false, p);
    } else if (own.size() == 2) {
      make(c, other(c, x), true, p);
    } else {
      std::string joined;
      std::vector<int> left;
      for (char y : own)
        if (state(c, y - '0').truth == -1)
          joined += state(c, y - '0').path;
        else
          left.push_back(y - '0');
      if (left.size() == 1) make(c, left[0], true, p, joined);
    }
    for (const std::vector<int>& places : houses(c, x)) {
      if (t) {
        for (int q : places) {
          if (q == c) continue;
          make(q, x, false, p);
          if (candstr(q).size() == 2) make(q, other(q, x), true, p);
        }
        continue;
      }
      std::string joined;
      std::vector<int> left;
      for (int q : places)
        if (state(q, x).truth == -1)
          joined += state(q, x).path;
        else
          left.push_back(q);
      if (left.size() == 1) make(left[0], x, true, p, joined);
    }
  }

  void make(int q, int y, bool f, const std::string& p, const std::string& joined = "") {
    const std::size_t count = nodes_.size();
    const std::string token = (count < 10 ? "0" : "") + std::to_string(count) + ",";
    State& first = state(q, y);
    if (first.truth == 0) {
      first = {f ? 1 : -1, (joined.empty() ? p : joined) + token};
    } else if (first.truth != (f ? 1 : -1)) {
      if (count > 260) ++queuefull;
      if (count <= 260) contradiction({q, y, f, p + token}, first.path);
      throw Over{};
    }
    for (const Node& old : nodes_)
      if (old.cell == q && old.digit == y && old.flag == f && old.path.size() < p.size() + 5) return;
    if (count > 260) {
      ++queuefull;
      throw Over{};
    }
    append({q, y, f, p + token});
  }

  void append(const Node& node) {
    slots.at(nodes_.size()) = slotread(node.cell, node.digit, node.flag, node.path.size());
    nodes_.push_back(node);
  }

  void contradiction(const Node& node, const std::string& second) {
    nodes_.push_back(node);
    std::vector<Node> links;
    std::istringstream tokens(node.path + second);
    for (std::string token; std::getline(tokens, token, ',');) links.push_back(nodes_[std::stoul(token)]);
    if (links.size() > 40) {
      ++toolong;
      return;
    }
    steps = static_cast<int>(links.size());
    chain.clear();
    for (const Node& link : links)
      chain += "r" + std::to_string(link.cell / 9 + 1) + "c" + std::to_string(link.cell % 9 + 1) +
               (link.flag ? "=" : "<>") + std::to_string(link.digit) + " ";
  }

  int limit_ = 80;
  std::vector<Node> nodes_;
  std::array<State, 820> state_;
};

/// The chain in the link tables.
std::string stepsread(int steps) {
  std::string text;
  for (int k = 0; k < steps; ++k)
    text += "r" + std::to_string(cellrow(linkcell(k))) + "c" + std::to_string(cellcol(linkcell(k))) +
            (linkflag(k) ? "=" : "<>") + std::to_string(linkdigit(k)) + " ";
  return text;
}

class ForcingSearch : public ChainBoards {
 protected:
  /// The step with its wait stopped. True: it found something.
  bool found() {
    clearcolours();
    return !hintof(player, frmmain::stepforcing, stop).empty();
  }
  void expectasliteral(LiteralForcing& literal, const std::string& which) {
    literal.slots.fill(slotread(0, 0, false, 0));
    chaincell.clear();
    chaindigit.clear();
    chainflag.clear();
    chainpath.clear();
    literal.all();
    const bool shown = found();
    // A hypothesis that can't lead to a shorter chain any more is left, so only a chain that is shown has the
    // whole queue of its hypothesis behind it.
    for (int k = 0; shown && k < nodecount(); ++k)
      ASSERT_EQ(slotread(chaincell(k), chaindigit(k), chainflag(k), static_cast<std::size_t>(chainpath(k))),
                literal.slots[static_cast<std::size_t>(k)])
          << which << ", queue at " << k;
    EXPECT_EQ(chainsteps, literal.steps) << which;
    EXPECT_EQ(shown, literal.steps < 20) << which;
    if (shown) {
      EXPECT_EQ(stepsread(chainsteps), literal.chain) << which;
    }
    EXPECT_TRUE(player.boxes.empty()) << which;  // breadth first, a path never comes shorter a second time
  }
  /// An empty board of which a share of the wrong candidates is gone, and nothing is known of its solution.
  void drawthinned(unsigned seed, unsigned percent) {
    std::mt19937 dice(seed);
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell)
      solutiontext(cell) = fullboard.substr(static_cast<std::size_t>(cell), 1);
    thin(dice, percent);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
  }
  /// Takes a share of the wrong candidates away.
  void thin(std::mt19937& dice, unsigned percent) {
    for (int cell = 0; cell < cellcount; ++cell)
      for (int digit = 1; digit <= 9; ++digit)
        if (solutiontext(cell) != std::to_string(digit) && dice() % 100 < percent)
          deletecandidate(cell, digit);
    take(Marks{});
  }
  static std::vector<std::string> hardpuzzles(std::size_t count) {
    std::ifstream in(TESTDATA "/corpus/hard.txt");
    std::vector<std::string> puzzles;
    for (std::string line; puzzles.size() < count && std::getline(in, line);) puzzles.push_back(line);
    return puzzles;
  }
};

TEST_F(ForcingSearch, IsAsTheLiteralOneOnThinnedBoards) {
  std::mt19937 dice(21);
  LiteralForcing literal;
  for (const std::string& puzzle : hardpuzzles(12)) {
    put(puzzle);
    conta();
    for (unsigned percent : {0u, 15u, 25u, 35u}) {
      thin(dice, percent);
      expectasliteral(literal, puzzle + " " + std::to_string(percent));
    }
  }
}

TEST_F(ForcingSearch, WithoutAStoredSolutionEveryCandidateIsSupposed) {
  std::mt19937 dice(4);
  LiteralForcing literal;
  for (const std::string& puzzle : hardpuzzles(6)) {
    put(puzzle);
    conta();
    thin(dice, 30);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
    expectasliteral(literal, puzzle);
  }
}

// Cells with two candidates scattered over a board on which all others have all nine: the hypotheses run
// through most of it, until the queue has no place left.
TEST_F(ForcingSearch, IsAsTheLiteralOneWhereTheQueueFillsUp) {
  std::mt19937 dice(7);
  const auto below = [&dice](int bound) { return static_cast<int>(dice() % static_cast<unsigned>(bound)); };
  LiteralForcing literal;
  for (int board = 0; board <= 60; ++board) {
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
    for (int j = 0; j < 30; ++j) {
      const int cell = below(81), a = 1 + below(9), b = 1 + below(9);
      if (candstr(cell).size() == 9 && a != b) leave(cell, std::to_string(a) + std::to_string(b));
    }
    expectasliteral(literal, std::to_string(board));
  }
  EXPECT_GT(literal.walkedfull, 0);
  EXPECT_GT(literal.queuefull, 0);
  EXPECT_GT(literal.toolong, 0);
}

TEST_F(ForcingSearch, IsAsTheLiteralOneWhereTheOrderOfHousesDecides) {
  for (const auto& [seed, percent] : {std::pair(218u, 62u), {665u, 61u}, {746u, 58u}, {1034u, 66u}}) {
    LiteralForcing literal;
    drawthinned(seed, percent);
    expectasliteral(literal, std::to_string(seed));
  }
}

// ---- which one is found -----------------------------------------------------------------------------------

constexpr int takenatonce = 10;

TEST_F(ForcingSearch, CellsWithTwoCandidatesComeFirstAndAShortChainEndsTheSearch) {
  std::mt19937 dice(10);
  int pairsfirst = 0, shorterlater = 0;
  for (const std::string& puzzle : hardpuzzles(12)) {
    put(puzzle);
    conta();
    thin(dice, 30);
    if (!found() || chainsteps >= takenatonce) continue;
    const int cell = linkcell(0), steps = chainsteps;
    LiteralForcing literal;
    for (int other = 0; other < cellcount; ++other)
      for (char digit : candstr(other)) {
        const bool before = std::tuple(candstr(other).size(), other) < std::tuple(candstr(cell).size(), cell);
        if (other == cell || solutiontext(other) == std::string(1, digit)) continue;
        literal.hypothesis(digit - '0', other);
        if (before) {
          EXPECT_GE(literal.steps, takenatonce) << puzzle;
        } else if (other < cell && literal.steps < takenatonce) {
          ++pairsfirst;
        } else if (literal.steps < steps) {
          ++shorterlater;
        }
      }
  }
  EXPECT_GT(pairsfirst, 0);
  EXPECT_GT(shorterlater, 0);
}

TEST_F(ForcingSearch, OfLongerChainsTheShortestOfTheBoardIsKept) {
  draw(longestboard);
  LiteralForcing literal;
  literal.all();
  ASSERT_TRUE(found());
  const int shortest = *std::min_element(literal.lengths.begin(), literal.lengths.end());
  EXPECT_EQ(shortest, 14);
  EXPECT_NE(literal.lengths.back(), shortest);  // so the tables hold another chain at the end of the scan
  EXPECT_EQ(chainsteps, shortest);
  EXPECT_EQ(cellrow(linkcell(0)), 7);
  EXPECT_EQ(cellcol(linkcell(0)), 4);
}

TEST_F(ForcingSearch, OnlyCandidatesThatTheSolutionMarksAsWrongAreSupposed) {
  draw(plainboard);
  ASSERT_TRUE(found());
  EXPECT_EQ(linkcell(0), at(8, 7));
  EXPECT_EQ(linkdigit(0), 6);
  solutiontext(at(8, 7)) = "6";
  ASSERT_TRUE(found());
  EXPECT_NE(linkcell(0) * 10 + linkdigit(0), at(8, 7) * 10 + 6);
}

TEST_F(ForcingSearch, EventsRunBehindEachBandOfCells) {
  draw(longestboard);  // up to five candidates: bands of 2 to 6
  found();
  EXPECT_EQ(player.turns, 5);
  player.turns = 0;
  draw(plainboard);  // found in the band of 4
  found();
  EXPECT_EQ(player.turns, 2);
}

// ---- bounds -----------------------------------------------------------------------------------------------

// Its shortest contradiction takes fifteen steps.
constexpr Drawn toolongtograde = {
    "3457 1 234 23 235 6 47 8 9 "
    "459 6 2489 89 259 7 1 3 45 "
    "357 589 389 189 139 4 2 6 57 "
    "1 34 5 2346 2367 8 47 9 467 "
    "2 348 6 34 347 9 5 1 478 "
    "49 7 489 146 146 5 3 2 468 "
    "8 459 1 7 469 2 69 45 3 "
    "3469 49 349 5 469 1 8 7 2 "
    "456 2 7 469 8 3 69 45 1",
    "314256789562897134789134265135628497246379518978415326851762943693541872427983651"};

// The shortest contradiction takes twenty steps or more.
constexpr Drawn toolongtoshow = {
    "156 2 3 7 689 1689 4 568 68 "
    "1567 1678 9 1268 4 168 2356 5678 3678 "
    "678 4 78 26 3 5 2679 6789 1 "
    "2 3 17 146 679 14679 8 1679 5 "
    "4 5789 1578 3 6789 16789 1679 2 679 "
    "78 789 6 5 2 1789 179 3 4 "
    "1678 1678 2 468 5 3 1679 146789 6789 "
    "3 5678 578 9 1 4678 567 45678 2 "
    "9 15678 4 68 678 2 35 15678 3678",
    "123796458579148263648235971231467895495381627786529134812653749367914582954872316"};

// Fifteen steps and more are too many for the grader alone; twenty and more for the hint, too.
TEST_F(ForcingSearch, TheGraderGivesUpOnAChainOfFifteenSteps) {
  draw(toolongtograde);
  nishioflag = true;
  foundflag = true;
  const Board before = theboard();
  frmgenerazione::gradeforcing();
  EXPECT_EQ(chainsteps, 15);
  EXPECT_EQ(player.boxes, std::vector<std::string>{""});
  EXPECT_EQ(runninglevel, 21);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(logcount, 0);
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(nishioflag);
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(found());  // the hint shows it
}

TEST_F(ForcingSearch, WhenTheGraderGivesUpNishioIsStillTried) {
  draw(toolongtograde);
  SolveSudoku();
  ASSERT_FALSE(player.boxes.empty());
  EXPECT_EQ(player.boxes.front(), "");
  EXPECT_TRUE(Frmlog::Text3.text.starts_with("\r\nNISHIO CHAIN - If ")) << Frmlog::Text3.text;
}

TEST_F(ForcingSearch, AChainOfFourteenStepsIsGraded) {
  draw(longestboard);
  frmgenerazione::gradeforcing();
  EXPECT_EQ(chainsteps, 14);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(levelcount(21), 1);
}

TEST_F(ForcingSearch, AChainOfTwentyStepsIsNoFind) {
  for (const Drawn& board : {toolongtoshow, Drawn{}}) {
    if (board.board.empty())
      put(fullboard);  // nothing to suppose at all
    else
      draw(board);
    const Board before = theboard();
    foundflag = true;
    nishioflag = true;
    frmmain::txthint.text = "old";
    player.event(frmmain::stepforcing);
    EXPECT_GE(chainsteps, 20);
    EXPECT_TRUE(player.frames.empty());
    EXPECT_EQ(steptag, "xlinks");
    EXPECT_EQ(frmmain::txthint.text, "old");
    EXPECT_FALSE(foundflag);
    EXPECT_TRUE(nishioflag);
    EXPECT_EQ(Frmlog::Text3.text, "");
    EXPECT_EQ(logcount, 0);
    expectnopaint();
    EXPECT_EQ(theboard(), before);
  }
}

TEST_F(ForcingSearch, NineteenStepsAreShownTwentyAreNot) {
  drawthinned(88, 44);
  EXPECT_TRUE(found());
  EXPECT_EQ(chainsteps, 19);
  drawthinned(896, 51);
  LiteralForcing literal;
  literal.all();
  EXPECT_EQ(*std::min_element(literal.lengths.begin(), literal.lengths.end()), 20);
  EXPECT_FALSE(found());
}

TEST_F(ForcingSearch, WhereNothingCanBeSupposedTheGraderGivesUpToo) {
  put(fullboard);
  runninglevel = 3;
  frmgenerazione::gradeforcing();
  EXPECT_EQ(player.boxes, std::vector<std::string>{""});
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(levelcount(21), 0);
}

// ---- what comes in between --------------------------------------------------------------------------------

TEST_F(ForcingSearch, AnotherPuzzleOpenedDuringTheWaitIsNotTouched) {
  for (const bool explaining : {false, true}) {
    draw(plainboard);
    player.frames.clear();
    Board opened;
    player.script = {[&] {
      open(without(fullboard, {at(1, 1), at(8, 7)}));
      opened = theboard();
    }};
    if (explaining) player.script.push_front(help);
    player.event(frmmain::stepforcing);
    EXPECT_TRUE(player.script.empty());
    EXPECT_EQ(theboard(), opened);
    EXPECT_EQ(candstr(at(8, 7)), "2");
    EXPECT_FALSE(waiting());
    expectnopaint();
  }
}

TEST_F(ForcingSearch, AnotherPuzzleOpenedDuringTheSearchIsNotTouched) {
  draw(longestboard);
  const std::string puzzle = hardpuzzles(1)[0];
  Board opened;
  bool once = true;
  player.onevents = [&] {
    if (!std::exchange(once, false)) return;
    open(puzzle);
    opened = theboard();
  };
  player.script = {go};
  player.event(frmmain::stepforcing);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(theboard(), opened);
  EXPECT_EQ(frmmain::txthint.text, "");
  expectnopaint();
}

TEST_F(ForcingSearch, ADigitEnteredDuringTheWaitStays) {
  draw(plainboard);
  player.script = {[] { writetext1(at(8, 7), "7"); }, go};
  player.event(frmmain::stepforcing);
  EXPECT_EQ(cellvalue(at(8, 7)), 7);
  EXPECT_EQ(frmmain::Text1(at(8, 7)).text, "7");
  EXPECT_EQ(candmask(at(8, 7)), 0);
  EXPECT_EQ(candstr(at(8, 7)), "");
}

// While pencil marks are edited candstr holds whatever the user typed.
TEST_F(ForcingSearch, OddTextsInCellsAreNoTrouble) {
  for (const char* text : {"", "1", "x", "1x", "0", "00", "987", "66", "666666666666", "5555555555556",
                           "?!5678?!5678?!5678", "12345678912345678912", "è6"}) {
    draw(plainboard);
    modificacandidati = true;
    writetext2(at(8, 7), "7");
    writetext2(at(8, 7), text);
    modificacandidati = false;
    ASSERT_EQ(candstr(at(8, 7)), text);
    const Board before = theboard();
    found();
    EXPECT_EQ(theboard(), before) << text;
    EXPECT_TRUE(player.boxes.empty()) << text;
  }
}

// A cell of fourteen characters, thirteen of them the same digit, which a single rules out all at once.
TEST_F(ForcingSearch, ADigitTypedManyTimesIsRuledOutManyTimes) {
  put(emptyboard);
  leave(at(1, 1), "12");
  leave(at(9, 9), "12");
  modificacandidati = true;
  writetext2(at(1, 9), "11111111111113");
  modificacandidati = false;
  for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell) = "9";
  const Board before = theboard();
  found();
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(player.boxes.empty());
}

}  // namespace
}  // namespace gradino::tests
