#include "grader.h"

#include "gradestate.h"
#include "host.h"
#include "ladders.h"
#include "levelreport.h"
#include "light.h"
#include "log.h"
#include "singles.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words beyond = {
    "                 Schema con 1 soluzione\r\n"
    " Non riesco a risolvere il sudoku con gli algoritmi dosponibili",
    "                 Puzzle with 1 solution\r\n"
    " I can't solve the sudoku with available algorithms"};

/// Lets the twins try in their order: the first that found something, or none.
const Technique* nextstep() {
  for (const Technique* technique : gradeladder)
    if (technique->twin()) return technique;
  return nullptr;
}

/// The puzzle is beyond the techniques. That is reported only of a puzzle known to have one solution.
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
    const Technique* made = nextstep();
    if (made == nullptr) return giveup();
    // The last empty cell of a board is always the last digit of a house: the end is looked for only there.
    if (made == &techniques::lastdigit && filledcount == cellcount) return messaggiolivello();
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
