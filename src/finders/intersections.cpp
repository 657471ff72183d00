// Intersections: all places that a digit has left in one house lie in a second house too. Wherever among them
// it goes, it goes nowhere else in the second house.
//
//   blockrow, blockcolumn   the places in a block lie on one line: the rest of the line loses the digit
//   rowblock, columnblock   the places on a line lie in one block: the rest of the block loses it
//
//     . . . | . . . | . . .        the 4s of block 1 lie on row 2:
//     4 4 . | x x . | . x .        the 4s marked x go
//     . . . | . . . | . . .
//
// Only digits with two or three places are looked at; with one place it is a hidden single.
#include "intersections.h"

#include <algorithm>
#include <vector>

#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

struct KindWords {
  HouseKind holder, target;  ///< the places lie in the holder; the target loses the digit
  Words hint, headline;
  Words title, rule, present, forced;
};

constexpr Words englishtitle(std::string_view italiantitle) {
  return {italiantitle, "INTERSECTIONS - LEVEL 3"};
}

constexpr KindWords blockrow = {
    HouseKind::block,
    HouseKind::row,
    {"INTERSEZIONE - nel settore {holder} un numero è presente solo nella riga {target}",
     "INTERSECTION - in block {holder} is present only on row {target}"},
    {"INTERSEZIONE - nel settore {holder} il numero {digit} è presente solo nella riga {target}",
     "INTERSECTION - in block {holder} the number {digit} is present only on row {target}"},
    englishtitle("INTERSEZIONE - SETTORE CONTRO RIGA - LIVELLO 3"),
    {"Se in un settore un candidato è presente solo su una riga, allora possiamo eliminare il candidato da tutte "
     "le altre celle della riga",
     "If in a block a candidate is present only in one row, then we can delete the candidate from all the other "
     "cells of the same row"},
    {"nel settore {holder} il numero {digit} è presente solo nella riga {target}",
     "on the block {holder} the number {digit} is present only on the row {target}"},
    {"nella riga {target} il numero {digit} deve quindi stare obbligatoriamente in una delle celle verdi",
     "in the row {target} the number {digit} is forced in one of green cells"},
};

constexpr KindWords blockcolumn = {
    HouseKind::block,
    HouseKind::column,
    {"INTERSEZIONE - nel settore {holder} un numero è presente solo nella colonna {target}",
     "INTERSECTION - in block {holder} is present only on column {target}"},
    {"INTERSEZIONE - nel settore {holder} il numero {digit} è presente solo nella colonna {target}",
     "INTERSECTION - in block {holder} the number {digit} is present only on column {target}"},
    englishtitle("INTERSEZIONE - SETTORE CONTRO COLONNA - LIVELLO 3"),
    {"Se in un settore un candidato è presente solo su una colonna, allora possiamo eliminare il candidato da "
     "tutte le altre celle della colonna",
     "If in a block a candidate is present only on one column, then we can delete the candidate from all the "
     "other cells of the same column"},
    {"nel settore {holder} il numero {digit} è presente solo nella colonna {target}",
     "on the block {holder} the number {digit} is present only on the column {target}"},
    {"nella colonna {target} il numero {digit} deve quindi stare obbligatoriamente in una delle celle verdi",
     "in the column {target} the number {digit} is forced in one of green cells"},
};

// The headline has two blanks behind the digit in Italian.
constexpr KindWords rowblock = {
    HouseKind::row,
    HouseKind::block,
    {"INTERSEZIONE - nella riga {holder} un numero è presente solo nel settore {target}",
     "INTERSECTION - in row {holder} is present only on block {target}"},
    {"INTERSEZIONE - nella riga {holder} il numero {digit}  è presente solo nel settore {target}",
     "INTERSECTION - in row {holder} the number {digit} is present only on block {target}"},
    englishtitle("INTERSEZIONE - RIGA CONTRO SETTORE - LIVELLO 3"),
    {"Se in una riga un candidato è presente solo su un settore, allora possiamo eliminare il candidato da tutte "
     "le altre celle del settore",
     "If in a row a candidate is present only on one block, then we can delete the candidate from all the other "
     "cells of the same block"},
    {"nella riga {holder} il numero {digit} è presente solo nel settore {target}",
     "on the row {holder} the number {digit} is present only on the block {target}"},
    {"nel settore {target} il numero {digit} deve quindi stare obbligatoriamente in una delle celle verdi",
     "in the block {target} the number {digit} is forced in one of green cells"},
};

// The headline says "in block" in English, where the others say "on".
constexpr KindWords columnblock = {
    HouseKind::column,
    HouseKind::block,
    {"INTERSEZIONE - nella colonna {holder} un numero è presente solo nel settore {target}",
     "INTERSECTION - in column {holder} is present only on block {target}"},
    {"INTERSEZIONE - nella colonna {holder} il numero {digit} è presente solo nel settore {target}",
     "INTERSECTION - in column {holder} the number {digit} is present only in block {target}"},
    englishtitle("INTERSEZIONE - COLONNA CONTRO SETTORE - LIVELLO 3"),
    {"Se in una colonna un candidato è presente solo su un settore, allora possiamo eliminare il candidato da "
     "tutte le altre celle del settore",
     "If in a column a candidate is present only on one block, then we can delete the candidate from all the "
     "other cells of the same block"},
    {"nella colonna {holder} il numero {digit} è presente solo nel settore {target}",
     "on the column {holder} the number {digit} is present only on the block {target}"},
    {"nel settore {target} il numero {digit} deve quindi stare obbligatoriamente in una delle celle verdi",
     "in the block {target} the number {digit} is forced in one of green cells"},
};

constexpr Words deleted = {"eliminato il numero {digit} da ", "deleted {digit} from "};
constexpr Words logdeleted = {" * eliminato il numero {digit} da ", " * deleted {digit} from "};
constexpr Words wecandelete = {"lo possiamo quindi eliminare da ",
                               "therefore, we can delete the number from "};
constexpr Words closing = {"eliminato il numero {digit} da ", "deleted the number {digit} from "};
constexpr std::string_view deletedcell = " {cell} , ";  // in both languages
constexpr std::string_view redcell = "{cell} , ";

constexpr int level = 3;

// ---- search -----------------------------------------------------------------------------------------------

struct Intersection {
  const KindWords* kind = nullptr;
  int digit = 0;
  int holder = 0, target = 0;  ///< houses, 0-based
  Positions places;            ///< in the holder

  std::vector<int> holdercells() const {
    std::vector<int> found;
    for (int p : places) found.push_back(housecell(kind->holder, holder, p));
    return found;
  }
};

/// The one walk over the cells that lose the digit, in the target's order: act(cell) for each.
template <class Act>
void victims(const Intersection& find, Act act) {
  for (int cell : housecells(find.kind->target, find.target))
    if (houseof(find.kind->holder, cell) != find.holder && hascandidate(cell, find.digit)) act(cell);
}

bool hasvictims(const Intersection& find) {
  bool any = false;
  victims(find, [&](int) { any = true; });
  return any;
}

constexpr bool lookedat(const Positions& places) {
  return places.length() == 2 || places.length() == 3;
}

/// The third of 0-2, 3-5, 6-8 that all positions lie in, or -1.
constexpr int third(const Positions& places) {
  return places.first() / 3 == places.last() / 3 ? places.first() / 3 : -1;
}

/// The column of the block, 0 to 2, that all positions in it lie on, or -1.
constexpr int columnofall(const Positions& places) {
  const int column = places.first() % 3;
  return std::all_of(places.begin(), places.end(), [column](int p) { return p % 3 == column; }) ? column : -1;
}

/// Hands each intersection that would delete something to act, in the order that decides which one is shown:
/// blocks against their lines, then rows, then columns against their blocks; in each the house first, then
/// the digit. act tells whether the search is over.
template <class Act>
void scan(Act act) {
  const auto over = [&act](const Intersection& find) { return hasvictims(find) && act(find); };
  for (int block = 0; block < 9; ++block)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = blockpos(digit, block);
      if (!lookedat(places)) continue;
      if (const int row = third(places);
          row >= 0 && over({&blockrow, digit, block, block / 3 * 3 + row, places}))
        return;
      if (const int col = columnofall(places);
          col >= 0 && over({&blockcolumn, digit, block, block % 3 * 3 + col, places}))
        return;
    }
  for (int row = 0; row < 9; ++row)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = rowpos(digit, row);
      if (lookedat(places) && third(places) >= 0 &&
          over({&rowblock, digit, row, row / 3 * 3 + third(places), places}))
        return;
    }
  for (int col = 0; col < 9; ++col)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = colpos(digit, col);
      if (lookedat(places) && third(places) >= 0 &&
          over({&columnblock, digit, col, col / 3 + third(places) * 3, places}))
        return;
    }
}

std::string tell(const Words& words, const Intersection& find) {
  return say(words, hole("digit", find.digit), hole("holder", find.holder + 1),
             hole("target", find.target + 1));
}

std::string named(std::string_view words, int cell) {
  return filled(words, {hole("cell", cellname(cell))});
}

void paintholder(const Intersection& find, Colour colour) {
  for (int cell : find.holdercells()) pencilmark(cell, find.digit).back = colour;
}

/// The step on show, for its explanation.
Intersection shown;

void keep(const Intersection& find) {
  shown = find;
  curdigit = find.digit;
  keephouse(find.kind->holder, find.holder);
  keephouse(find.kind->target, find.target);
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::intersections() {
  foundflag = false;
  steptag = "intersections";
  scan([](const Intersection& find) {
    keep(find);
    paintholder(find, green);
    txthint.text = tell(find.kind->hint, find);
    const bool stop = stopped();
    paintholder(find, white);
    if (stop) return true;
    txthint.text = tell(deleted, find);
    victims(find, [&](int cell) {
      deletecandidate(cell, find.digit);
      foundflag = true;
      txthint.text += named(deletedcell, cell);
    });
    if (foundflag) showdeletions();
    return foundflag;
  });
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::intersections() {
  foundflag = false;
  scan([](const Intersection& find) {
    headline(tell(find.kind->headline, find));
    detail(tell(logdeleted, find));
    raiselevel(level);
    victims(find, [&](int cell) {
      deletecandidate(cell, find.digit);
      foundflag = true;
      appendwords(named(deletedcell, cell));
    });
    settledeletions();
    return true;
  });
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainintersections() {
  if (shown.kind == nullptr) return;  // the tag was set, but nothing was ever found
  const KindWords& kind = *shown.kind;
  Lesson lesson;
  lesson.line(inlanguage(kind.title)).line(inlanguage(kind.rule)).line(ruleline);
  lesson.line(tell(kind.present, shown)).line(tell(kind.forced, shown)).line(inlanguage(wecandelete));
  victims(shown, [&](int cell) {
    pencilmark(cell, shown.digit).back = red;
    lesson.words(named(redcell, cell));
  });
  if (lesson.stopped()) return;

  frmmain::txthint.text = tell(closing, shown);
  for (int cell : housecells(kind.target, shown.target))
    if (pencilmark(cell, shown.digit).back == red) frmmain::txthint.text += named(deletedcell, cell);
  closelesson();
  clearcolours();
}

}  // namespace gradino
