#include "grader.h"

#include "bug.h"
#include "colouring.h"
#include "fish.h"
#include "forcing.h"
#include "gradestate.h"
#include "host.h"
#include "intersections.h"
#include "levelreport.h"
#include "light.h"
#include "log.h"
#include "loops.h"
#include "nishio.h"
#include "pairs.h"
#include "rectangles.h"
#include "singles.h"
#include "step.h"
#include "subsets.h"
#include "tables.h"
#include "wings.h"
#include "words.h"
#include "xychains.h"

namespace gradino {
namespace {

constexpr Words beyond = {
    "                 Schema con 1 soluzione\r\n"
    " Non riesco a risolvere il sudoku con gli algoritmi dosponibili",
    "                 Puzzle with 1 solution\r\n"
    " I can't solve the sudoku with available algorithms"};

// Behind the singles. The step solver's order is another, so a puzzle can be graded through another path than
// the one that its user steps through.
// clang-format off
constexpr void (*rungs[])() = {
    frmgenerazione::intersections,
    frmgenerazione::nakedpair,
    frmgenerazione::hiddenpair,
    frmgenerazione::findtriple,
    frmgenerazione::gradebug,
    frmgenerazione::gradeur,
    frmgenerazione::findquad,
    frmgenerazione::findxywing,
    frmgenerazione::findxyzwing,
    frmgenerazione::findxwing,
    frmgenerazione::findswordfish,
    frmgenerazione::findjellyfish,
    frmgenerazione::gradecolors,
    frmgenerazione::gradexcolors,
    frmgenerazione::gradexychain,
    frmgenerazione::gradelinks,
    frmgenerazione::gradeforcing,
    frmgenerazione::gradenishio,
};
// clang-format on

/// The first single that there is, placed; or none.
const SingleRung* placesingle() {
  for (const SingleRung& rung : singlerungs)
    if (frmgenerazione::single(rung)) return &rung;
  return nullptr;
}

/// Lets the twins try in their order, until one has changed the board.
bool anytwin() {
  for (const auto& rung : rungs) {
    rung();
    if (foundflag) return true;
  }
  return false;
}

/// The puzzle is beyond the techniques. Only a puzzle known to have one solution is worth a word.
void giveup() {
  if (boardfinished || numerosoluzioni != 1) return;
  runninglevel = 21;
  detail(inlanguage(beyond));
  if (comandocorrente.empty()) host.message(std::string(inlanguage(beyond)));
}

/// Rung after rung, until the board is full or no rung finds anything.
void climb() {
  for (;;) {
    letevents();
    foundflag = false;
    if (const SingleRung* rung = placesingle()) {
      // The last empty cell of a board is always the last digit of a house: the end is looked for only there.
      if (rung == &singlerungs.front() && filledcount == cells) return messaggiolivello();
      continue;
    }
    if (!anytwin()) return giveup();
  }
}

}  // namespace

void SolveSudoku() {
  cleargrade();
  boardfinished = false;
  rebuildpositions();
  try {
    climb();
  } catch (Fault& fault) {
    fault.ungraded = true;
    throw;
  }
}

}  // namespace gradino
