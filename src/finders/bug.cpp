// BUG: were every open cell left with two candidates, each digit would have two places in every house that it
// is open in, and the board would have no solution or several. One cell alone has a third candidate, so one
// of its three must break the pattern: the digit with three places in a house of the cell.
//
//     12 . 23 | . . . | . . .
//      . .  . | . . . | . . .      the 2 of the cell 123 has three places in the column
//     13 . 123| . . . | . . .
//      . .  . | . . . | . . .
//      . . 24 | . . . | . . .
//
// Of several such digits the highest is taken. That there is one is not asked: without one the digit is
// whatever colourdigit held before.
#include "bug.h"

#include <string>

#include "boxes.h"
#include "candidatetext.h"
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

constexpr Words found = {"BUG in {cell}", "BUG in {cell}"};
constexpr Words entered = {"inserito {digit} in {cell}", "entered {digit} in {cell}"};
constexpr Words logentered = {" * inserito {digit} in {cell}", " * entered {digit} in {cell}"};

constexpr std::string_view title = "BUG LEVEL 18";  // in both languages
constexpr Words rule = {
    "Se ogni cella insoluta ha solo 2 candidati, in ogni gruppo abbiamo esattamente ogni candiato 2 volte, allora "
    "abbiamo un Bivalue Universal Grave (BUG).\r\n"
    "Il BUG è un deadly pattern, ha 0 o più di 1 soluzione.\r\n"
    "Se troviamo una situazione dove tutte le celle insolute ad eccezione di una hanno 2 soli candidati, tallora "
    "dalla cella che ha più di 2 candidati possiamo escludere i candidati che portanno al BUG.",
    "If every unsolved cell has only 2 possible candidates, in every house there are exactly 2 of every "
    "candidate, then we have a Bivalue Universal Grave (BUG).\r\n"
    "The BUG is a deadly pattern, it has either zero or more than one solution.\r\n"
    "If we found a situation were all but one unsolved cell has only 2 candidates, then from the cell that has "
    "more than 2 candidates we can remove the candidates that will create a BUG."};
constexpr Words ifdifferent = {"se {cell} è differente da {digit}, lo schema si troba in un BUG",
                               "if {cell} is different from {digit}, the puzzle is in a BUG position"};
constexpr Words wecaninsert = {"posso quindi inserire {digit} in {cell}",
                               "we can, therefore, insert {digit} in {cell}"};

constexpr int level = 18;

// ---- search -----------------------------------------------------------------------------------------------

constexpr int nocell = cellcount;

/// The one cell of more than two candidates, if it has three; or nocell. Cells with one candidate or none
/// don't hinder.
int gravecell() {
  int grave = nocell;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (candidatecount(cell) <= 2) continue;
    if (grave != nocell) return nocell;
    grave = cell;
  }
  return grave != nocell && candidatecount(grave) == 3 ? grave : nocell;
}

bool threeplaces(int cell, int digit) {
  for (HouseKind kind : {HouseKind::block, HouseKind::column, HouseKind::row})
    if (housepos(kind, digit, houseof(kind, cell)).length() == 3) return true;
  return false;
}

struct Bug {
  int cell = nocell, digit = 0;
};

/// The last of the cell's digits that qualifies; `before` where none does.
Bug scanbug(int before) {
  Bug find = {gravecell(), before};
  if (find.cell == nocell) return find;
  for (int k = 0; k < 3; ++k)
    if (threeplaces(find.cell, candidateat(find.cell, k))) find.digit = candidateat(find.cell, k);
  return find;
}

/// What the last step found, for its explanation.
Bug shown;

std::string tell(const Words& words, const Bug& find) {
  return say(words, ofdigit(find.digit), incell(find.cell));
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepbug() {
  foundflag = false;
  steptag = techniques::bug.tag;
  const Bug find = shown = scanbug(colourdigit);  // a command that comes in during the wait may show another
  if (find.cell == nocell) return;
  colourdigit = find.digit;
  foundflag = true;
  Text5.text = std::to_string(find.digit);
  Text2(find.cell).back = yellow;
  txthint.text = tell(found, find);
  const bool stop = waitatlight() == Answer::stop;
  Text2(find.cell).back = white;
  if (stop) return;  // with foundflag set: the ladder stops all the same

  txthint.text = tell(entered, find);
  writetext1(find.cell, std::to_string(find.digit));
  Text1(find.cell).visible = true;
}

// ---- twin -------------------------------------------------------------------------------------------------

// Its digit is its own, 0 before the search: where none qualifies, the log says 0.
void frmgenerazione::gradebug() {
  foundflag = false;
  const Bug find = scanbug(0);
  if (find.cell == nocell) return;
  foundflag = true;
  headline(tell(found, find));
  detail(tell(logentered, find));
  placesilently(find.cell, find.digit);
  raiselevel(level);
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainbug() {
  const Bug find = shown;
  if (find.cell == nocell) return;  // a command that found nothing, while another step waits, may be asked
  Lesson lesson;
  lesson.line(title).line(inlanguage(rule)).line(longruleline);
  lesson.line(tell(found, find)).line(tell(ifdifferent, find));
  if (lesson.showandwait() == Answer::stop) return;

  lesson.line(tell(wecaninsert, find));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::bug{
    .tag = "bug",
    .name = "bug",
    .called = {"BUG", "BUG"},
    .step = byfoundflag<frmmain::stepbug>,
    .twin = byfoundflag<frmgenerazione::gradebug>,
    .explain = explainbug,
    .level = level,
};

}  // namespace gradino
