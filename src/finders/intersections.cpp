// Intersections: all places that a digit has left in one house lie in a second house too. The digit goes to
// one of them, so it goes nowhere else in the second house.
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
#include <optional>
#include <string>
#include <string_view>

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
constexpr Words deletedcell = {" {cell} , ", " {cell} , "};
constexpr Words redcell = {"{cell} , ", "{cell} , "};

constexpr int level = 3;

// ---- search -----------------------------------------------------------------------------------------------

struct Intersection {
  const KindWords* kind;
  int digit;
  int holder, target;  ///< houses, 0-based
  Positions places;    ///< in the holder
};

/// The one walk over the cells that lose the digit, in the target's order: act(cell) for each.
template <class Act>
void victims(const Intersection& intersection, Act act) {
  for (int cell : housecells(intersection.kind->target, intersection.target))
    if (houseof(intersection.kind->holder, cell) != intersection.holder &&
        hascandidate(cell, intersection.digit))
      act(cell);
}

bool hasvictims(const Intersection& intersection) {
  const House& target = housecells(intersection.kind->target, intersection.target);
  return std::any_of(target.begin(), target.end(), [&](int cell) {
    return hascandidate(cell, intersection.digit) &&
           houseof(intersection.kind->holder, cell) != intersection.holder;
  });
}

/// Whether two or three positions lie together in a third of the house (0-2, 3-5, 6-8), or on a column of a
/// block. The thirds of a block are its rows, those of a line lie in one block each.
struct Together {
  bool third, column;
};

constexpr Together togetherat(unsigned bits) {
  Together where{false, false};
  if (bitcounts[bits] != 2 && bitcounts[bits] != 3) return where;
  for (int n = 0; n < 3; ++n) {
    if ((bits & ~(0b111u << 3 * n)) == 0) where.third = true;
    if ((bits & ~(0b001001001u << n)) == 0) where.column = true;
  }
  return where;
}

/// By the positions' bits. Most do not lie together, so this must cost one look only.
constexpr auto together = [] {
  ByIndex<Together, 512> table{};
  for (int bits = 0; bits < 512; ++bits) table[bits] = togetherat(static_cast<unsigned>(bits));
  return table;
}();
static_assert(!together[0b001100000].third && together[0b001001001].column);

/// Calls act for each intersection that would delete something, in the order that decides which one is shown:
/// blocks against their lines, then rows, then columns against their blocks; in each by house, then by digit.
/// act returns true when the search is over.
template <class Act>
void scan(Act act) {
  const auto over = [&act](const KindWords& kind, int digit, int holder, Positions places) {
    const int target = houseof(kind.target, housecells(kind.holder, holder)[places.first()]);
    const Intersection intersection = {&kind, digit, holder, target, places};
    return hasvictims(intersection) && act(intersection);
  };
  for (int block = 0; block < 9; ++block)
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = blockpos(digit, block);
      const auto [onrow, oncolumn] = together[places.bits];
      if (onrow && over(blockrow, digit, block, places)) return;
      if (oncolumn && over(blockcolumn, digit, block, places)) return;
    }
  for (const KindWords* kind : {&rowblock, &columnblock}) {
    const auto& positions = kind->holder == HouseKind::row ? rowpos : colpos;
    for (int line = 0; line < 9; ++line)
      for (int digit = 1; digit <= 9; ++digit) {
        const Positions places = positions(digit, line);
        if (together[places.bits].third && over(*kind, digit, line, places)) return;
      }
  }
}

std::string tell(const Words& words, const Intersection& intersection) {
  return say(words, ofdigit(intersection.digit), hole("holder", intersection.holder + 1),
             hole("target", intersection.target + 1));
}

void paintholder(const Intersection& intersection, Colour colour) {
  for (int position : intersection.places) {
    const int cell = housecell(intersection.kind->holder, intersection.holder, position);
    pencilmark(cell, intersection.digit).back = colour;
  }
}

/// The step on show. Only its explanation reads it.
std::optional<Intersection> shown;

void forget() {
  shown.reset();
}

void keep(const Intersection& intersection) {
  shown = intersection;
  curdigit = intersection.digit;
  keephouse(intersection.kind->holder, intersection.holder);
  keephouse(intersection.kind->target, intersection.target);
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::intersections() {
  foundflag = false;
  steptag = techniques::intersections.tag;
  shown.reset();
  scan([](const Intersection& intersection) {
    keep(intersection);
    paintholder(intersection, green);
    txthint.text = tell(intersection.kind->hint, intersection);
    const bool stop = waitatlight() == Answer::stop;
    paintholder(intersection, white);
    if (stop) return true;
    txthint.text = tell(deleted, intersection);
    victims(intersection, [&](int cell) {
      deletecandidate(cell, intersection.digit);
      foundflag = true;
      txthint.text += say(deletedcell, incell(cell));
    });
    if (foundflag) showdeletions();
    return foundflag;
  });
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::intersections() {
  foundflag = false;
  scan([](const Intersection& intersection) {
    headline(tell(intersection.kind->headline, intersection));
    detail(tell(logdeleted, intersection));
    raiselevel(level);
    victims(intersection, [&](int cell) {
      deletecandidate(cell, intersection.digit);
      foundflag = true;
      appendwords(say(deletedcell, incell(cell)));
    });
    settledeletions();
    return true;
  });
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainintersections() {
  if (!shown) return;  // a search without a result was started during another step's wait
  const Intersection intersection =
      *shown;  // a command that comes in during the wait may show another, or none
  const KindWords& kind = *intersection.kind;
  Lesson lesson;
  lesson.line(inlanguage(kind.title)).line(inlanguage(kind.rule)).line(ruleline);
  lesson.line(tell(kind.present, intersection))
      .line(tell(kind.forced, intersection))
      .line(inlanguage(wecandelete));
  victims(intersection, [&](int cell) {
    pencilmark(cell, intersection.digit).back = red;
    lesson.words(say(redcell, incell(cell)));
  });
  if (lesson.showandwait() == Answer::stop) return;

  frmmain::txthint.text = tell(closing, intersection);
  for (int cell : housecells(kind.target, intersection.target))
    if (pencilmark(cell, intersection.digit).back == red)
      frmmain::txthint.text += say(deletedcell, incell(cell));
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
    .forget = forget,
};

}  // namespace gradino
