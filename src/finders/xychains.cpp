// XY-chains: a chain of consequences through cells with two candidates, from "the digit is in the cell" back
// to "the digit is not in the cell".
//
//     r2c2 = 7 ->  r2c6 <> 7  ->  r2c6 = 3  ->  r8c6 <> 3  ->  r8c6 = 7  ->  r8c2 <> 7 ... -> r2c2 <> 7
//
// Read from its ends: the digit is in the first or in the last cell of the chain, so the start, which sees
// both, loses it. Only the start loses anything. The search is that of the loops, with narrower rules.
#include "xychains.h"

#include <optional>
#include <string>

#include "chain.h"
#include "conjugatechains.h"
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

// The hint and the headline of the log.
constexpr Words found = {"CATENA XY {digit} , o in {first} , o in {last}",
                         "XY CHAIN, {digit} , or in {first} , or in {last}"};

constexpr Words logif = {" * Se {cell} = {digit} allora", " * If {cell} = {digit} then"};
constexpr Words logifnot = {" * Se {cell} <> {digit} allora", " * If {cell} <> {digit} then"};

constexpr Words title = {
    "XY CHAIN - LEVEL 19\r\n"
    "La catena XY è una catena di celle contenenti solo 2 candidati.\r\n"
    "Le celle che vedono l'inizio e la fine della catena NON POSSONO contenere il candidato in comune.",
    "XY CHAIN - LEVEL 19\r\n"
    "A XY-Chain is a chain of cells which each contain only 2 candidates.\r\n"
    "cell that is seen by both the start and the end of the chain CAN NOT contain the common candidate."};
constexpr Words suppose = {"se {cell} = {digit}", "if {cell} = {digit}"};
constexpr Words supposenot = {"se {cell} <> {digit}", "if {cell} <> {digit}"};
constexpr Words therefore = {"perciò, {digit} o in {first} o in {last}",
                             "therefore, {digit} or in {first} or in {last}"};
constexpr Words candelete = {"Posso eliminare {digit} da {cell}", "I can delete {digit} from {cell}"};

constexpr int level = 19;

/// Words about the two ends of the chain without its start.
std::string tellends(const Words& words, const Chain& chain) {
  return say(words, ofdigit(chain.start().digit), hole("first", cellname(chain.first().cell)),
             hole("last", cellname(chain.last().cell)));
}

struct Paint {
  Colour ends, start;
};

void paintends(const Chain& chain, const Paint& colours) {
  const int digit = chain.start().digit;
  pencilmark(chain.first().cell, digit).back = colours.ends;
  pencilmark(chain.start().cell, digit).back = colours.start;
  pencilmark(chain.last().cell, digit).back = colours.ends;
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepxychain() {
  steptag = techniques::xychain.tag;
  foundflag = false;
  const std::optional<Chain> chain = scanchain(ChainRules::xychains);
  if (!chain) return;
  const auto [cell, digit, istrue] = chain->start();
  foundflag = true;
  Text5.text = std::to_string(digit);
  paintends(*chain, {.ends = green, .start = red});
  txthint.text = tellends(found, *chain);
  chain->paint(yellow);
  if (waitatlight() == Answer::stop) return;  // the colours stay

  deletecandidate(cell, digit);
  paintends(*chain, {.ends = white, .start = white});
  chain->paint(white);
  showdeletions();
  nishioflag = false;
}

// ---- twin -------------------------------------------------------------------------------------------------

// It leaves nishioflag as it is, unlike the step.
void frmgenerazione::gradexychain() {
  foundflag = false;
  const std::optional<Chain> chain = scanchain(ChainRules::xychains);
  if (!chain) return;
  const auto [cell, digit, istrue] = chain->start();
  foundflag = true;
  headline(tellends(found, *chain));
  detail(say(istrue ? logif : logifnot, incell(cell), ofdigit(digit)));
  chain->log();
  deletecandidate(cell, digit);
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainxychain() {
  const std::optional<Chain> chain = chainonshow();
  if (!chain) return;  // the tag was set, but nothing was found
  const auto [cell, digit, istrue] = chain->start();
  Lesson lesson;
  lesson.line(inlanguage(title)).line(ruleline);
  const std::string hypothesis = say(istrue ? suppose : supposenot, incell(cell), ofdigit(digit));
  if (chain->argue(lesson, hypothesis) == Answer::stop) return;
  lesson.line(tellends(therefore, *chain));
  pencilmark(cell, digit).back = red;
  lesson.line(say(candelete, incell(cell), ofdigit(digit)));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
  foundflag = true;
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::xychain{
    .tag = "xychain",
    .name = "xychain",
    .called = {"XY-chain", "XY-chain"},
    .step = byfoundflag<frmmain::stepxychain>,
    .twin = byfoundflag<frmgenerazione::gradexychain>,
    .explain = explainxychain,
    .level = level,
    .forget = forgetchain,
};

}  // namespace gradino
