#include "commands.h"

#include "browser.h"
#include "bug.h"
#include "continuous.h"
#include "counter.h"
#include "editing.h"
#include "filecommands.h"
#include "fish.h"
#include "forcing.h"
#include "generator.h"
#include "grid.h"
#include "host.h"
#include "intersections.h"
#include "log.h"
#include "loops.h"
#include "menu.h"
#include "nishio.h"
#include "pairs.h"
#include "rectangles.h"
#include "simplecolours.h"
#include "step.h"
#include "stepsolver.h"
#include "subsets.h"
#include "tables.h"
#include "view.h"
#include "wings.h"
#include "xcolours.h"
#include "xychains.h"

namespace gradino {

using namespace frmmain;
using namespace techniques;

namespace {

constexpr Words alreadycomplete = {"schema già completato", "sudoku already completed"};

constexpr Words boxexists = {"Errore: la casella candidate({index}) esiste già. Il programma termina.",
                             "Error: the box candidate({index}) exists already. The program ends."};

/// True, with a message, when there is nothing left to solve or count.
bool boardfull() {
  if (filledcount != cellcount) return false;
  host.message(std::string(inlanguage(alreadycomplete)));
  return true;
}

/// Copies the solution into the boxes.
bool solve() {
  if (boardfull()) return false;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (Text1(cell).text.empty()) Text1(cell).fore = textcolor;
    writetext1(cell, solutiontext(cell));
  }
  return true;
}

/// Restores the digits on the board and what they rule out: a count leaves the last state of its search in
/// the tables, and the user goes on with the board.
class KeptDigits {
 public:
  KeptDigits() = default;
  ~KeptDigits() {
    cellvalue = values_;
    usedmask = used_;
  }
  KeptDigits(const KeptDigits&) = delete;
  KeptDigits& operator=(const KeptDigits&) = delete;

 private:
  const decltype(cellvalue) values_ = cellvalue;
  const decltype(usedmask) used_ = usedmask;
};

/// An action from a command that never refuses.
template <void (*command)()>
bool run() {
  command();
  return true;
}

bool savekey() {
  if (filledcount == cellcount) showgivens();
  mnusave_Click();
  return true;
}

/// Techniques from the menu: one after the other, whatever the first one did.
template <const Technique&... technique>
void eachof() {
  (technique.step(), ...);
}

/// Techniques from the toolbar: each only if the one before found nothing. foundflag is cleared first, as not
/// every technique clears it itself.
template <const Technique&... technique>
bool untilfound() {
  foundflag = false;
  static_cast<void>((technique.step() || ...));
  return true;
}

// clang-format off
const MenuRow menutable[] = {
#define TITLE(control, it, en)      {&(control), #control, true,  {it, en}, nullptr},
#define ENTRY(control, it, en, ...) {&(control), #control, false, {it, en}, __VA_ARGS__},
#include "menu.def"
};

const KeyRow toolbar2table[] = {
#define KEY(control, picture, caption, tipit, tipen, nameit, nameen, it, en, ...) \
  {&Toolbar2::control, picture, caption, {tipit, tipen}, {nameit, nameen}, {it, en}, __VA_ARGS__},
#define GAP {},
#include "toolbar2.def"
};

const KeyRow toolbar1table[] = {
#define KEY(control, picture, caption, tipit, tipen, nameit, nameen, it, en, ...) \
  {&Toolbar1::control, picture, caption, {tipit, tipen}, {nameit, nameen}, {it, en}, __VA_ARGS__},
#define GAP {},
#include "toolbar1.def"
};
// clang-format on

}  // namespace

std::span<const MenuRow> menurows() {
  return menutable;
}
std::span<const KeyRow> toolbar1rows() {
  return toolbar1table;
}
std::span<const KeyRow> toolbar2rows() {
  return toolbar2table;
}

void Toolbar1_ButtonClick(const KeyRow& row) {
  const bool viewonly = row.control == &Toolbar1::pencil || row.control == &Toolbar1::numero;
  if (!viewonly && refusedbylight()) return;
  row.action();
}

void Toolbar2_ButtonClick(const KeyRow& row) {
  if (refusedbylight()) return;
  const bool needspuzzle = row.control == &Toolbar2::conta || row.control == &Toolbar2::risolvi;
  if (needspuzzle && !checkloaded()) return;
  if (row.action()) showpencilmarks();
}

void mnurefresh_Click() {
  modificacandidati = false;
  rebuildwhole();
}

void mnunumber_Click() {
  mnunumber.ticked = !mnunumber.ticked;
  Label3.visible = Text5.visible = mnunumber.ticked;
}

void mnuactivity_Click() {
  loadlogwindow();
  Frmlog::visible = !frmmain::mnuactivity.ticked;
  frmmain::mnuactivity.ticked = Frmlog::visible;
}

void mnusolve_Click() {
  solve();
}

bool countsolutions() {
  if (boardfull()) return false;
  const Job job(countcommand);
  const KeptDigits digits;
  conta();
  return true;
}

void showgivens() {
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) writetext1(cell, givens(cell));
  suppresschange = false;
  refreshcandidates();
}

void cmdimpossibili_Click() {
  untilfound<bug, uniquerectangle>();
}

void Cmdtest_Click() {
  xychain.step();
}

void mnuprint_Click() {
  host.print();
}

void cmdnice_Click() {
  host.message(say(boxexists, hole("index", 1)));
  host.quit();
}

void Frame1_DblClick() {
  Toolbar2::continuo.visible = cmdnice.visible = !cmdnice.visible;
}

}  // namespace gradino
