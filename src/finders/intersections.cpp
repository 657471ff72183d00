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
#include <array>
#include <cstdint>
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

// The headline has two blanks after the digit in Italian.
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
  const House& target = housecells(find.kind->target, find.target);
  return std::any_of(target.begin(), target.end(), [&](int cell) {
    return hascandidate(cell, find.digit) && houseof(find.kind->holder, cell) != find.holder;
  });
}

/// Where two or three positions lie together, or -1: in a third of the house (0-2, 3-5, 6-8; in a block its
/// rows), and, in a block, on one of its columns.
struct Together {
  std::int8_t third, column;
};

constexpr Together togetherat(unsigned bits) {
  Together found{-1, -1};
  if (bitcounts[bits] != 2 && bitcounts[bits] != 3) return found;
  for (int n = 0; n < 3; ++n) {
    if ((bits & ~(0b111u << 3 * n)) == 0) found.third = static_cast<std::int8_t>(n);
    if ((bits & ~(0b001001001u << n)) == 0) found.column = static_cast<std::int8_t>(n);
  }
  return found;
}

/// By the positions' bits: most have no such place, and that is to be seen at one look.
constexpr auto together = [] {
  std::array<Together, 512> table{};
  for (unsigned bits = 0; bits < table.size(); ++bits) table[bits] = togetherat(bits);
  return table;
}();
static_assert(together[0b001100000].third == -1 && together[0b001001001].column == 0);

/// Hands each intersection that would delete something to act, in the order that decides which one is shown:
/// blocks against their lines, then rows, then columns against their blocks; in each the house first, then
/// the digit. act tells whether the search is over.
template <class Act>
void scan(Act act) {
  const auto over = [&act](const Intersection& find) { return hasvictims(find) && act(find); };
  for (int block = 0; block < 9; ++block)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = blockpos(digit, block);
      const auto [row, col] = together[places.bits];
      if (row >= 0 && over({&blockrow, digit, block, block / 3 * 3 + row, places})) return;
      if (col >= 0 && over({&blockcolumn, digit, block, block % 3 * 3 + col, places})) return;
    }
  for (int row = 0; row < 9; ++row)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = rowpos(digit, row);
      if (const int third = together[places.bits].third;
          third >= 0 && over({&rowblock, digit, row, row / 3 * 3 + third, places}))
        return;
    }
  for (int col = 0; col < 9; ++col)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = colpos(digit, col);
      if (const int third = together[places.bits].third;
          third >= 0 && over({&columnblock, digit, col, col / 3 + third * 3, places}))
        return;
    }
}

std::string tell(const Words& words, const Intersection& find) {
  return say(words, ofdigit(find.digit), hole("holder", find.holder + 1), hole("target", find.target + 1));
}

std::string named(std::string_view words, int cell) {
  return filled(words, {incell(cell)});
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
  steptag = techniques::intersections.tag;
  shown = {};
  scan([](const Intersection& find) {
    keep(find);
    paintholder(find, green);
    txthint.text = tell(find.kind->hint, find);
    const bool stop = waitatlight() == Answer::stop;
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
  const Intersection find = shown;   // a command that comes in during the wait may show another, or none
  if (find.kind == nullptr) return;  // a search without a result was started during another step's wait
  const KindWords& kind = *find.kind;
  Lesson lesson;
  lesson.line(inlanguage(kind.title)).line(inlanguage(kind.rule)).line(ruleline);
  lesson.line(tell(kind.present, find)).line(tell(kind.forced, find)).line(inlanguage(wecandelete));
  victims(find, [&](int cell) {
    pencilmark(cell, find.digit).back = red;
    lesson.words(named(redcell, cell));
  });
  if (lesson.showandwait() == Answer::stop) return;

  frmmain::txthint.text = tell(closing, find);
  for (int cell : housecells(kind.target, find.target))
    if (pencilmark(cell, find.digit).back == red) frmmain::txthint.text += named(deletedcell, cell);
  closelesson();
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::intersections{
    .tag = "intersections",
    .name = "intersections",
    .called = {"intersezioni", "intersections"},
    .step = byfoundflag<frmmain::intersections>,
    .twin = byfoundflag<frmgenerazione::intersections>,
    .explain = explainintersections,
    .level = level,
};

}  // namespace gradino
