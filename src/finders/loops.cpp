// Loops: a chain of consequences that starts from "the digit is in the cell" and comes back to "the digit is
// not in the cell". The hypothesis was false, and the digit leaves the cell.
//
//     r1c1 = 5  ->  r1c7 <> 5  ->  r1c7 = 2  ->  r6c7 <> 2  ->  r6c1 = 2  ->  r6c1 <> 5 ... -> r1c1 <> 5
//
// The search (conjugatechains.h) keeps the shortest chain of the board.
#include "loops.h"

#include <optional>
#include <string>

#include "chain.h"
#include "conjugatechains.h"
#include "gradestate.h"
#include "grid.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

constexpr Words hint = {"LOOP, trovata contradizione, numero {digit} , {cell}",
                        "LOOP, contradiction found number {digit} , {cell}"};

constexpr Words loghead = {"LOOP, trovata contradizione, {cell}", "LOOP, contradiction found, {cell}"};
constexpr Words logif = {" * Se {cell}={digit} allora", " * If {cell}={digit} then"};
constexpr Words lognegation = {" * {cell}<>{digit}", " * {cell}<>{digit}"};
constexpr Words logcontradicts = {" * CONTRADDICE L'IPOTESI", " * CONTRADICTING THE HYPOTESHIS"};
constexpr Words logdeleting = {" * elimino {digit} da {cell}", " * deleting {digit} from {cell}"};

// The title says 19, the grader counts 20.
constexpr Words title = {
    "LOOPS - LIVELLO 19\r\n"
    "Si deve trovare una cella nella quale ipotizzando un particolare candidato si ottiene, attraverso una catena "
    "di conseguenze, alla negazione della ipotesi fatta",
    "LOOPS - LEVEL 19\r\n"
    "We must find a chain that, based on an  hypothesis brings to the opposite of the hypothesis itself"};
constexpr Words suppose = {"se {cell}={digit}", "if {cell}={digit}"};
constexpr Words negation = {"{cell}<>{digit}", "{cell}<>{digit}"};
constexpr Words contradicts = {"CONTRADDICE L'IPOTESI", "CONTRADICTING THE HYPOTESHIS"};
constexpr Words candelete = {"quindi posso eliminare {digit} da {cell}",
                             "therefore, I can delete {digit} from {cell}"};

constexpr int level = 20;

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::steplinks() {
  steptag = techniques::loop.tag;
  foundflag = false;
  const std::optional<Chain> chain = scanchain(ChainRules::loops);
  if (!chain) return;
  const auto [cell, digit, istrue] = chain->start();
  foundflag = true;
  Text5.text = std::to_string(digit);
  pencilmark(cell, digit).back = red;
  txthint.text = say(hint, incell(cell), ofdigit(digit));
  chain->paint(yellow);
  if (waitatlight() == Answer::stop) return;  // the colours stay

  deletecandidate(cell, digit);
  pencilmark(cell, digit).back = white;
  chain->paint(white);
  showdeletions();
  nishioflag = false;
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::gradelinks() {
  foundflag = false;
  const std::optional<Chain> chain = scanchain(ChainRules::loops);
  if (!chain) return;
  const auto [cell, digit, istrue] = chain->start();
  foundflag = true;
  headline(say(loghead, incell(cell), ofdigit(digit)));
  nishioflag = false;
  detail(say(logif, incell(cell), ofdigit(digit)));
  chain->log();
  detail(say(lognegation, incell(cell), ofdigit(digit)));
  detail(inlanguage(logcontradicts));
  detail(say(logdeleting, incell(cell), ofdigit(digit)));
  deletecandidate(cell, digit);
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainlinks() {
  const std::optional<Chain> chain = chainonshow();
  if (!chain) return;  // the tag was set, but nothing was found
  const auto [cell, digit, istrue] = chain->start();
  Lesson lesson;
  lesson.line(inlanguage(title)).line(ruleline);
  if (chain->argue(lesson, say(suppose, incell(cell), ofdigit(digit))) == Answer::stop) return;
  lesson.line(say(negation, incell(cell), ofdigit(digit))).line(inlanguage(contradicts));
  lesson.line(say(candelete, incell(cell), ofdigit(digit)));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
  foundflag = true;
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::loop{
    .tag = "links",
    .name = "links",
    .called = {"loop", "loop"},
    .step = byfoundflag<frmmain::steplinks>,
    .twin = byfoundflag<frmgenerazione::gradelinks>,
    .explain = explainlinks,
    .level = level,
    .forget = forgetchain,
};

}  // namespace gradino
