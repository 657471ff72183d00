#include "session.h"

#include "boardgrade.h"
#include "captions.h"
#include "counter.h"
#include "faults.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "log.h"
#include "puzzlefile.h"
#include "startup.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino::cli {

void speak(const std::string& language) {
  lingua = language == "it" ? italian : english;
}

void startsession(Session& session, const std::string& language) {
  session = {};
  host = {};
  host.message = [&session](const std::string& text) { session.boxes.push_back(text); };
  startprogram();
  if (language == "it") cmdlan_Click();
}

void runguarded(Session& session, const std::function<void()>& event) {
  try {
    event();
  } catch (const Fault& fault) {
    suppresschange = false;
    session.fault = faulttext(fault);
  }
}

void putup(const std::string& puzzle) {
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
  refreshcandidates();
  rebuildcandstr();
  rebuildpositions();
  countgivens();
}

void putonshow(const std::string& puzzle) {
  putup(puzzle);
  mnupencil_Click();
  showboard();
}

std::string valuestext() {
  std::string text;
  for (int cell = 0; cell < cellcount; ++cell) text += std::to_string(cellvalue(cell));
  return text;
}

Json candsjson() {
  Json masks = Json::array();
  for (int cell = 0; cell < cellcount; ++cell) masks.push_back(candmask(cell));
  return masks;
}

Json countersjson() {
  Json counters = Json::array();
  for (int level = 1; level <= 21; ++level) counters.push_back(int(levelcount(level)));
  return counters;
}

std::vector<std::string> linesof(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(newline, begin);
    lines.push_back(text.substr(begin, end - begin));
    if (end == std::string::npos) return lines;
    begin = end + newline.size();
  }
}

Json logjson() {
  return linesof(Frmlog::Text3.text);
}

}  // namespace gradino::cli
