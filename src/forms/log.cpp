#include "log.h"

#include "boxes.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words logcaption = {"Log - DOPPIO CLICK su una linea per il dettaglio dell'evento",
                              "Log - DOUBLE CLICK on one line to explain the technique "};

}  // namespace

void loadlogwindow() {
  if (Frmlog::caption.empty()) Frmlog::caption = inlanguage(logcaption);
}

void appendline(std::string_view line) {
  loadlogwindow();
  Frmlog::Text3.text.append(newline).append(line);
}

void appendwords(std::string_view words) {
  Frmlog::Text3.text.append(words);
}

void counthead() {
  if (!comandocorrente.empty()) return;
  logcount += 1;
  logsnapshot();
}

void headline(std::string_view line) {
  appendline(line);
  counthead();
}

void detail(std::string_view line) {
  appendline(line);
  logcount += 1;
}

void logsnapshot() {
  std::string& values = logvalues(logcount);
  std::string& masks = logcands(logcount);
  values.clear();
  masks.clear();
  for (int cell = 0; cell < cells; ++cell) {
    values += std::to_string(cellvalue(cell));
    masks += std::to_string(candmask(cell)) + ",";
  }
  logflags(logcount) = nishioflag;
}

void clearlog() {
  for (int line = 0; line <= 150; ++line) {
    logvalues(line).clear();
    logcands(line).clear();
  }
  logcount = 0;
  loadlogwindow();
  Frmlog::Text3.text.clear();
}

}  // namespace gradino
