#include "files.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "boxes.h"
#include "clearboard.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "light.h"
#include "menu.h"
#include "puzzlefile.h"
#include "replacefile.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino {
namespace {

// The words speak of saving although a file was opened.
constexpr Words openfailed = {"errore nel salvataggio", "error on saving process"};
constexpr const char* several = "More than one solution ";  // in both languages
constexpr const char* newpuzzle = "nuovo schema";           // in both languages

[[noreturn]] void filefault(const std::string& name) {
  throw Fault{Fault::Kind::file, name, 0, 0, 0, ""};
}

std::ifstream openfile(const std::string& name) {
  std::error_code error;
  std::ifstream file;
  if (std::filesystem::is_regular_file(name, error)) file.open(name, std::ios::binary);
  if (!file.is_open()) filefault(name);
  return file;
}

/// What stands in the boxes becomes the puzzle.
void takeboxes() {
  for (int cell = 0; cell < cellcount; ++cell) {
    const std::string& text = frmmain::Text1(cell).text;
    cellvalue(cell) = leadingnumber(text, cell);
    givens(cell) = text;
  }
}

/// The empty boxes show entries in the plain text colour from here on.
void plainempty() {
  for (Box& box : frmmain::Text1)
    if (box.text.empty()) box.fore = textcolor;
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
  std::ifstream file = openfile(name);
  if (name.ends_with("sas")) {
    readcommas(file);
    file.close();
    frmmain::filetxt.text = name;
    // Runs into the failure test with no failure pending, which reports one; suppresschange and bkglabel
    // stay.
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
  const std::string content = name.ends_with("lgc") ? puzzledrawing() : puzzleline();
  if (!replacefile(name, content + std::string(newline))) filefault(name);
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

void countgivens() {
  conta();
  if (numerosoluzioni > 1) host.message(several);
}

void settleboard() {
  loadgivens();
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
  rebuildpositions();
}

void showboard() {
  settleboard();
  plainempty();
  updatetext2();
  frmmain::bkglabel.visible = false;
}

void gradeboard() {
  settleboard();
  mnupencil_Click();
  try {
    SolveSudoku();
  } catch (const BoardLost&) {
    frmmain::bkglabel.visible = false;
    throw;
  } catch (...) {  // a full table, a library that can't be written: the grade is lost, but not the board
    settleboard();
    plainempty();
    updatetext2();
    throw;
  }
  showboard();
}

}  // namespace gradino
