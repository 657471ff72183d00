#include "levelreport.h"

#include <string>

#include <fmt/format.h>

#include "boxes.h"
#include "gradestate.h"
#include "levels.h"
#include "library.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr std::string_view total = " tot. {points}";

/// "12x1 - 3x2 - 1x20 ": cutting two characters off the last separator leaves its blank.
std::string detailtext() {
  std::string text;
  for (int level = 21; level >= 1; --level)
    if (levelcount(level) != 0) text += fmt::format("{}x{} - ", level, int(levelcount(level)));
  if (!text.empty()) text.resize(text.size() - 2);
  return text;
}

/// The record on show may be another than the puzzle on the board: the browser stays usable, and a puzzle can
/// be changed and saved.
bool recordisboard() {
  const std::string& stringa = frmmain::txtstringa.text;
  for (std::size_t cell = 0; cell < cellcount; ++cell) {
    const std::string& digit = givens(static_cast<int>(cell));
    if (cell >= stringa.size() || stringa[cell] != (digit.empty() ? '.' : digit.front())) return false;
  }
  return true;
}

}  // namespace

void messaggiolivello() {
  nishioflag = false;
  dettaglio = detailtext();
  for (int level = 1; level <= 21; ++level) frmmain::liv(level).text = std::to_string(levelcount(level));

  Int16 sum{"difficolta"}, product{"difficolta"};
  for (int level = 1; level <= 21; ++level) {
    product = levelof(level).weight * levelcount(level);
    sum += product;
  }
  difficolta = sum;

  frmmain::testototale.text = fmt::format(total, fmt::arg("points", int(difficolta)));
  frmmain::txtlivello1.text = dettaglio;
  frmmain::txtlivello.text = inlanguage(levelof(runninglevel).name);

  if (libraryrecordopen && recordisboard()) {
    Data1.edit();
    frmmain::testolivello.text = std::to_string(runninglevel);
    frmmain::txttotale.text = std::to_string(difficolta);
    frmmain::txtdettaglio.text = dettaglio;
    Data1.update();
  }
}

}  // namespace gradino
