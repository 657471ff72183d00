// XY-chains: a chain of consequences through cells with two candidates, from "the digit is in the cell" back
// to "the digit is not in the cell".
//
//     r2c2 = 7 ->  r2c6 <> 7  ->  r2c6 = 3  ->  r8c6 <> 3  ->  r8c6 = 7  ->  r8c2 <> 7 ... -> r2c2 <> 7
//
// Read from its ends: the digit is in the first or in the last cell of the chain, so the start, which sees
// both, loses it. Only the start loses anything. The search is that of the loops, with narrower rules.
#include "xychains.h"

#include "conjugatechains.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "nodequeue.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

// The hint and the headline of the log.
constexpr Words found = {"CATENA XY {digit} , o in {first} , o in {last}",
                         "XY CHAIN, {digit} , or in {first} , or in {last}"};

constexpr Words logif = {" * Se {cell} = {digit} allora", " * If {cell} = {digit} then"};
constexpr Words logifnot = {" * Se {cell} <> {digit} allora", " * If {cell} <> {digit} then"};
constexpr Words logis = {" * {cell} = {digit}", " * {cell} = {digit}"};
constexpr Words logisnot = {" * {cell} <> {digit}", " * {cell} <> {digit}"};

constexpr Words title = {
    "XY CHAIN - LEVEL 19\r\n"
    "La catena XY è una catena di celle contenenti solo 2 candidati.\r\n"
    "Le celle che vedono l'inizio e la fine della catena NON POSSONO contenere il candidato in comune.",
    "XY CHAIN - LEVEL 19\r\n"
    "A XY-Chain is a chain of cells which each contain only 2 candidates.\r\n"
    "cell that is seen by both the start and the end of the chain CAN NOT contain the common candidate."};
constexpr Words suppose = {"se {cell} = {digit}", "if {cell} = {digit}"};
constexpr Words supposenot = {"se {cell} <> {digit}", "if {cell} <> {digit}"};
constexpr Words is = {"{cell} = {digit}", "{cell} = {digit}"};
constexpr Words isnot = {"{cell} <> {digit}", "{cell} <> {digit}"};
constexpr Words therefore = {"perciò, {digit} o in {first} o in {last}",
                             "therefore, {digit} or in {first} or in {last}"};
constexpr Words candelete = {"Posso eliminare {digit} da {cell}", "I can delete {digit} from {cell}"};

constexpr int level = 19;

std::string tell(const Words& words, int cell, int digit) {
  return say(words, hole("cell", cellname(cell)), hole("digit", digit), hole("first", cellname(linkcell(1))),
             hole("last", cellname(linkcell(chainlength))));
}
std::string telllink(const Words& yes, const Words& no, int k) {
  return tell(linkflag(k) ? yes : no, linkcell(k), linkdigit(k));
}

void paintchain(Colour colour) {
  for (int k = 1; k <= chainlength; ++k)
    if (linkcell(k) != linkcell(0)) frmmain::Text2(linkcell(k)).back = colour;
}

void paintends(int digit, Colour ends, Colour start) {
  pencilmark(linkcell(1), digit).back = ends;
  pencilmark(linkcell(0), digit).back = start;
  pencilmark(linkcell(chainlength), digit).back = ends;
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepxychain() {
  steptag = "xychain";
  foundflag = false;
  int digit = 0, cell = 0;
  scanchain(ChainRules::xychains, digit, cell);
  if (chainlength >= nochain) return;
  foundflag = true;
  Text5.text = std::to_string(digit);
  paintends(digit, green, red);
  txthint.text = tell(found, cell, digit);
  paintchain(yellow);
  if (stopped()) return;  // the colours stay

  deletecandidate(cell, digit);
  paintends(digit, white, white);
  paintchain(white);
  showdeletions();
  nishioflag = false;
}

// ---- twin -------------------------------------------------------------------------------------------------

// It leaves nishioflag as it is, unlike the step.
void frmgenerazione::gradexychain() {
  foundflag = false;
  int digit = 0, cell = 0;
  scanchain(ChainRules::xychains, digit, cell);
  if (chainlength >= nochain) return;
  foundflag = true;
  headline(tell(found, cell, digit));
  detail(tell(linkflag(0) ? logif : logifnot, cell, digit));
  for (int k = 1; k <= chainlength; ++k) detail(telllink(logis, logisnot, k));
  deletecandidate(cell, digit);
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainxychain() {
  if (chainlength >= nochain) return;  // the tag was set, but nothing was found
  const int cell = linkcell(0), digit = linkdigit(0);
  Lesson lesson;
  lesson.line(inlanguage(title)).line(ruleline);
  pencilmark(cell, digit).back = green;
  lesson.line(tell(linkflag(0) ? suppose : supposenot, cell, digit));
  if (lesson.stopped()) return;
  for (int k = 1; k <= chainlength; ++k) {
    pencilmark(linkcell(k), linkdigit(k)).back = green;
    lesson.line(telllink(is, isnot, k));
    if (lesson.stopped()) return;
  }
  lesson.line(tell(therefore, cell, digit));
  pencilmark(cell, digit).back = red;
  lesson.line(tell(candelete, cell, digit));
  if (lesson.stopped()) return;
  closelesson();
  clearcolours();
  foundflag = true;
}

}  // namespace gradino
