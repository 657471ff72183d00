#include "filecommands.h"

#include <fstream>
#include <string>

#include "boardgrade.h"
#include "boxes.h"
#include "clearboard.h"
#include "counter.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "light.h"
#include "menu.h"
#include "puzzlefile.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino {
namespace {

// It says saving, though it is about opening.
constexpr Words openfailed = {"errore nel salvataggio", "error on saving process"};
constexpr const char* newpuzzle = "nuovo schema";  // in both languages

/// What the boxes hold becomes the puzzle.
void takeboxes() {
  for (int cell = 0; cell < cellcount; ++cell) {
    const std::string& text = frmmain::Text1(cell).text;
    cellvalue(cell) = leadingnumber(text, cell);
    givens(cell) = text;
  }
}

void openpuzzle() {
  frmmain::bkglabel.visible = true;
  libraryrecordopen = false;
  frmmain::mnupencil.ticked = false;
  clearboard();
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    frmmain::Text1(cell).visible = true;
    cellvalue(cell) = 0;
    writetext1(cell, "");
    frmmain::Text1(cell).fore = red;
  }
  CD1.filter = openfilter;
  host.showopen(CD1);
  const std::string name = CD1.filename;
  std::ifstream file = openpuzzlefile(name);
  if (name.ends_with("sas")) {
    readcommas(file);
    file.close();
    frmmain::filetxt.text = name;
    // Reports a failure though there is none; suppresschange and bkglabel stay set.
    return host.message(std::string(inlanguage(openfailed)));
  }
  scanfile(file);
  file.close();
  suppresschange = false;
  refreshcandidates();
  rebuildcandstr();
  rebuildpositions();
  frmmain::filetxt.text = name;
  host.repaint();
  plainempty();
  countgivens();
  gradeboard();
}

}  // namespace

void mnuopen_Click() {
  try {
    openpuzzle();
  } catch (const Fault& fault) {
    const bool noname = fault.kind == Fault::Kind::file && fault.name.empty();
    if (!noname) host.message(std::string(inlanguage(openfailed)));
  }
}

void mnusave_Click() {
  CD1.filter = savefilter;
  CD1.filename = dettaglio;
  host.showsave(CD1);
  const std::string name = CD1.filename;
  writepuzzle(name);
  frmmain::filetxt.text = name;
  try {
    takeboxes();
    plainempty();
    countgivens();
    gradeboard();
  } catch (Fault& fault) {
    fault.written = name;
    throw;
  }
}

void mnunew_Click() {
  libraryrecordopen = false;
  if (pencilmarks()) mnupencil_Click();
  frmmain::filetxt.text = newpuzzle;
  clearboard();
}

}  // namespace gradino
