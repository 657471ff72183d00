#include "replay.h"

#include <charconv>
#include <string>
#include <string_view>

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "log.h"
#include "menu.h"
#include "step.h"
#include "stepsolver.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words lightfirst = {"per continuare click sul semaforo verde",
                              "to proceed, click on green traffic light"};
constexpr Words nodetail = {"selezionare una linea senza l'asterisco iniziale",
                            "select a line without initial asterisk"};
constexpr Words nosnapshot = {
    "per questa linea non è stato conservato lo schema: non c'è nulla a cui tornare",
    "no board was kept for this line: there is nothing to go back to"};

/// The line around the caret: between the last line break before it and the next at or after it.
std::string_view lineat(std::string_view text, std::size_t caret) {
  const std::string_view upto = text.substr(0, text.find(newline, caret));
  const std::size_t begin = upto.rfind(newline);
  return begin == std::string_view::npos ? upto : upto.substr(begin + newline.size());
}

/// The number of line breaks before the caret, which is the number of its line. At the end of a line it is
/// still that line.
int breaksbefore(std::string_view text, std::size_t caret) {
  int count = 0;
  for (std::size_t at = text.find(newline); at < caret; at = text.find(newline, at + 1)) ++count;
  return count;
}

/// Acts on the line of the log that has byte `caret`, unless a step waits or the line is a detail.
void choose(std::size_t caret, void (*act)()) {
  if (waiting()) return host.message(std::string(inlanguage(lightfirst)));
  const std::string_view text = Frmlog::Text3.text;
  logline = breaksbefore(text, caret);
  if (lineat(text, caret).starts_with(" *")) return host.message(std::string(inlanguage(nodetail)));
  act();
}

}  // namespace

void Text3_DblClick(std::size_t caret) {
  choose(caret, ritrova);
}

void Text3_Return(std::size_t caret) {
  choose(caret, [] {
    if (!hassnapshot(logline)) return host.message(std::string(inlanguage(nosnapshot)));
    ritrova();
  });
}

void ritrova() {
  const std::string values = logvalues(logline), masks = logcands(logline);
  const char* mask = masks.data();
  const char* const end = mask + masks.size();
  suppresschange = true;
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    const char digit = values.empty() ? '0' : values.at(static_cast<std::size_t>(cell));
    cellvalue(cell) = digit - '0';
    if (cellvalue(cell) != 0) {
      writetext1(cell, std::string_view(&digit, 1));
      frmmain::Text1(cell).visible = true;
      filledcount += 1;
    } else {
      writetext1(cell, "");
      frmmain::Text1(cell).visible = false;
    }
    candmask(cell) = 0;
    mask = std::from_chars(mask, end, candmask(cell)).ptr;
    if (mask != end) ++mask;  // its comma
  }
  // No refreshcandidates: the stored masks are the truth.
  rebuildusedmask();
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
  suppresschange = false;
  showcounts();
  nishioflag = logflags(logline);
  if (!pencilmarks()) mnupencil_Click();
  mnuposition_Click();
}

}  // namespace gradino
