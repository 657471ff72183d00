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

/// The digits on the board and what they rule out, put back when it ends: a count leaves in the tables what
/// its search ended on, and the user works on with the board.
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

/// A command that never refuses.
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

/// Techniques from the menu: one after the other, whatever the first did.
template <const Technique&... technique>
void eachof() {
  (technique.step(), ...);
}

/// Techniques from the toolbar: each only if the one before found nothing. Not every technique clears
/// foundflag itself, and what an earlier command found is none of this one's.
template <const Technique&... technique>
bool untilfound() {
  foundflag = false;
  static_cast<void>((technique.step() || ...));
  return true;
}

constexpr Words both(std::string_view text) {
  return {text, text};
}

// clang-format off
const MenuRow menutable[] = {
    {&mnufile,       true,  both("File"),                                       nullptr},
    {&mnuopen,       false, {"Apri", "Open"},                                   mnuopen_Click},
    {&mnusave,       false, {"Salva", "Save"},                                  mnusave_Click},
    {&mnunew,        false, {"Nuovo", "New blank"},                             mnunew_Click},
    {&mnuprint,      false, {"Stampa", "Print"},                                mnuprint_Click},
    {&mnulibreria,   false, {"Libreria", "Open library"},                       mostralibreria},
    {&mnuview,       true,  {"Visualizza", "View"},                             nullptr},
    {&mnupencil,     false, {"Mostra candidati", "Show pencil marks"},          mnupencil_Click},
    {&mnurefresh,    false, {"Rigenera candidati", "Refresh pencil marks"},     mnurefresh_Click},
    {&mnuedit,       false, {"Modifica candidati", "Edit pencil marks"},        mnuedit_Click},
    {&mnuactivity,   false, {"Mostra attivita'", "Show activity"},              mnuactivity_Click},
    {&mnuhints,      true,  {"Suggerimenti", "Hints"},                          nullptr},
    {&mnuposition,   false, {"suggerisci posizione", "Suggest position"},       mnuposition_Click},
    {&mnunumber,     false, {"suggerisci numero", "Suggest number"},            mnunumber_Click},
    {&mnutecniche,   true,  {"Tecniche", "Tecniques"},                          nullptr},
    {&mnurestricted, false, {"Intersezioni", "Intersections"},                  eachof<techniques::intersections>},
    {&mnunakedpair,  false, both("Naked Pair"),                                 eachof<techniques::nakedpair>},
    {&mnuhidden,     false, both("Hidden pair"),                                eachof<techniques::hiddenpair>},
    {&mnutriplet,    false, both("Naked-Hidden triple-quad"),                   eachof<triple, quad>},
    {&mnuxy,         false, both("XY-XYZ Wing"),                                eachof<xywing, xyzwing>},
    {&mnuxwing,      false, both("X Wing"),                                     eachof<xwing>},
    {&mnusword,      false, both("Sword Fish -JellyFish"),                      eachof<swordfish, jellyfish>},
    {&mnucolori,     false, {"Colori", "Coloring"},                             eachof<simplecolours, xcolours>},
    {&mnuchain,      false, {"Catene forzate", "Forcing chain"},                eachof<loop, nishio>},
    {&mnutools,      true,  {"Strumenti", "Tools"},                             nullptr},
    {&mnusolve,      false, {"Risolvi", "Solve"},                               mnusolve_Click},
    {&mnugenerator,  true,  {"Generatore", "Generator"},                        nullptr},
    {&mnuadvanced,   false, {"Avanzato", "Advanced"},                           nuovoschema},
};

const KeyRow toolbar2table[] = {
    {&Toolbar2::open,       "open",        "Open",   {"apri", "open"},                                run<mnuopen_Click>},
    {&Toolbar2::anew,       "new",         "New",    {"nuovo", "new"},                                run<mnunew_Click>},
    {&Toolbar2::libreria,   "libreria",    "",       {"libreria", "library"},                         run<mostralibreria>},
    {&Toolbar2::save,       "save",        "",       {"salva", "save"},                               savekey},
    {&Toolbar2::print,      "print",       "",       {"stampa", "print"},                             run<mnuprint_Click>},
    {nullptr,               "",            "",       {},                                              nullptr},
    {&Toolbar2::risolvi,    "risolvi",     "",       {"risolvi", "solution"},                         solve},
    {&Toolbar2::conta,      "conta",       "",       {"conta soluzioni", "count solutions"},          countsolutions},
    {&Toolbar2::undo,       "undo",        "",       {"rigenera schema", "from scratch"},             run<restoregivens>},
    {nullptr,               "",            "",       {},                                              nullptr},
    {&Toolbar2::genera,     "genera",      "",       {"generatore", "generator"},                     run<nuovoschema>},
    {&Toolbar2::continuo,   "continuo",    "",       {"generatore continuo", "continuous generator"}, run<genera_e_conta>},
    {nullptr,               "",            "",       {},                                              nullptr},
};

const KeyRow toolbar1table[] = {
    {&Toolbar1::pencil,      "pencil",      "",       {"candidati", "pencil marks"},                   run<mnupencil_Click>},
    {&Toolbar1::refresh,     "refresh",     "",       {"rigenera candidati", "refresh pencil marks"},  run<mnurefresh_Click>},
    {&Toolbar1::modifica,    "modifica",    "",       {},                                              run<modifica_Click>},
    {&Toolbar1::activity,    "activity",    "",       {"log attività", "activity log"},                run<mnuactivity_Click>},
    {nullptr,                "",            "",       {},                                              nullptr},
    {&Toolbar1::obbligate,   "obbligate",   "",       {"intersezioni", "intersections"},               untilfound<techniques::intersections>},
    {&Toolbar1::nakedpair,   "nakedpair",   "",       {"doppia nuda", "naked pair"},                   untilfound<techniques::nakedpair>},
    {&Toolbar1::hidden,      "hidden",      "",       {"doppia nascosta", "hidden pair"},              untilfound<techniques::hiddenpair>},
    {&Toolbar1::nakedtriple, "nakedtriple", "",       {"triple quadruple", "naked_hidden triple-quad"}, untilfound<triple, quad>},
    {&Toolbar1::xywing,      "xywing",      "",       {"XY-XYZ Wing", "XY-XYZ Wing "},                 untilfound<xywing, xyzwing>},
    {&Toolbar1::xwing,       "xwing",       "",       {"X Wing", "X Wing"},                            untilfound<xwing>},
    {&Toolbar1::sword,       "sword",       "",       {"swordfish-jellyfish", "swordfish-jellyfish"},  untilfound<swordfish, jellyfish>},
    {&Toolbar1::colori,      "colori",      "",       {"colori", "colors"},                            untilfound<simplecolours, xcolours>},
    {&Toolbar1::chain,       "chain",       "",       {"cicli - catene forzate", "loops - chains"},    untilfound<loop, forcingchain, nishio>},
    {nullptr,                "",            "",       {},                                              nullptr},
    {nullptr,                "",            "",       {},                                              nullptr},
    {nullptr,                "",            "",       {},                                              nullptr},
    {&Toolbar1::numero,      "numero",      "numero", {"mostra suggerimento", "show hint number"},     run<mnunumber_Click>},
    {&Toolbar1::suggerisci,  "suggerisci",  "tip",    {"suggerisci", "hint"},                          run<mnuposition_Click>},
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
