#include "browser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include <fmt/format.h>

#include "boardgrade.h"
#include "clearboard.h"
#include "counter.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "levels.h"
#include "library.h"
#include "light.h"
#include "tables.h"

namespace gradino {

using namespace frmlivello;

namespace {

constexpr const char* levelquery =
    "SELECT schema.* FROM [schema] WHERE (((schema.livello)={}))ORDER BY schema.difficolta DESC";

// In one language only.
constexpr const char* outofrange = "record fuori dal campo";
constexpr const char* several = "more then 1 solution";
constexpr const char* loaded = "Level {}, puzzle {}";
constexpr const char* total = " tot. {}";

constexpr Words title = {"Selezione Livello", "Select Level"};

struct LabelWords {
  Box* label;
  Words words;
};
// clang-format off
const LabelWords labelwords[] = {
    {&Label12, {"La libreria contiene",                       "The library contains"}},
    {&Label13, {"schemi         schema selezionato",          "puzzles           puzzle selected"}},
    {&Label15, {"dettaglio",                                  "detail"}},
    {&Label14, {"difficoltà",                                 "difficulty"}},
    {&Label20, {"Schemi ordinati per difficoltà decrescente", "Puzzles ordered by decreasing difficulty"}},
    {&frmlivello::Label1, {"schema nr.",                      "grid  id "}},
};
// clang-format on

int totale = 0;  ///< puzzles of the chosen level

/// The record in the preview, and the number that it had when it was shown. The list can change while the
/// window is open: by a run of the generator, a grade, another program.
struct Preview {
  Bookmark record;
  int number;
};
std::optional<Preview> onshow;

/// The number at the start of a text. One that is too long is larger than any library.
std::int32_t numberin(std::string_view text) {
  try {
    return leadingnumber(text);
  } catch (const Fault&) {
    return INT32_MAX;
  }
}

std::int32_t selected() {
  return numberin(numeroselezionato.text);
}

void showpreview() {
  const std::string& stringa = frmmain::txtstringa.text;
  for (int cell = 0; cell < cellcount; ++cell) {
    Text2(cell).visible = true;
    const auto at = static_cast<std::size_t>(cell);
    Text2(cell).text = at < stringa.size() ? stringa.substr(at, 1) : "";
  }
}

/// numeroselezionato has a new text. One that is no number of a record is ignored.
void numeroselezionato_Change() {
  const std::int32_t number = selected();
  if (numberin(numerototale.text) < number) return host.message(outofrange);
  if (number < 1) return;
  Data1.moveto(number - 1);
  dettagliotxt.text = frmmain::txtdettaglio.text;
  difftxt.text = frmmain::txttotale.text;
  id.text = frmmain::txtprogressivo.text;
  showpreview();
  onshow = {Data1.bookmark(), number};
}

/// Updates the total.
void counttotal() {
  if (livelloscelto.text.empty()) return;
  totale = Data1.recordcount();
  numerototale.text = std::to_string(totale);
}

bool numberofpreview() {
  return onshow && selected() == onshow->number;
}

/// Updates the total and the number of the puzzle on show.
void follow() {
  counttotal();
  if (!numberofpreview()) return;
  const int position = Data1.position(onshow->record);
  if (position < 0) return;  // its level has changed
  onshow->number = position + 1;
  numeroselezionato.text = std::to_string(onshow->number);
}

/// A failure here is left to the next action of the user, which reports it.
void followifopen() {
  if (!frmlivello::visible) return;
  try {
    follow();
  } catch (const LibraryFailure&) {
  }
}

void select(int number) {
  numeroselezionato.text = std::to_string(number);
  numeroselezionato_Change();
}

void load() {
  freshbrowser();
  visible = true;
  caption = inlanguage(title);
  for (const LabelWords& row : labelwords) row.label->text = inlanguage(row.words);
  for (int level = 0; level <= 21; ++level) LabelL(level).text = inlanguage(levelof(level).inlibrary);
}

/// Copies the puzzle of the record to givens and boxes. Anything but a digit counts as empty.
void putup(const std::string& stringa) {
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto at = static_cast<std::size_t>(cell);
    const char sign = at < stringa.size() ? stringa[at] : ' ';
    if (sign == '.') frmmain::Text1(cell).fore = textcolor;
    givens(cell) = sign >= '1' && sign <= '9' ? std::string(1, sign) : "";
    writetext1(cell, givens(cell));
  }
}

}  // namespace

// If the level can't be read, the reason is all that is shown.
void frmlivello::Option1_Click(int index) {
  for (int n = 0; n <= 22; ++n) Option1(n).ticked = n == index;
  livelloscelto.text = std::to_string(index);
  totale = 0;
  onshow.reset();
  numerototale.text.clear();
  numeroselezionato.text.clear();
  Data1.query(fmt::format(levelquery, index));
  Data1.movelast();
  counttotal();
  select(static_cast<int>(host.random() * totale) + 1);
  frmmain::txtdettaglio.text = dettagliotxt.text;
  frmmain::txttotale.text = difftxt.text;
}

void frmlivello::numeroselezionato_Typed(std::string_view text) {
  if (numeroselezionato.text == text) return;
  numeroselezionato.text = text;
  counttotal();
  numeroselezionato_Change();
}

void frmlivello::Command1_Click() {
  frmmain::libreria();
}

void frmlivello::Command2_Click() {
  follow();
  if (selected() > 1) select(selected() - 1);
}

void frmlivello::Command3_Click() {
  follow();
  if (selected() < numberin(numerototale.text)) select(selected() + 1);
}

void frmlivello::Command4_Click() {
  follow();
  if (numeroselezionato.text != std::to_string(totale)) select(totale);
}

void frmlivello::Command5_Click() {
  follow();
  if (numeroselezionato.text != "1") select(1);
}

void frmmain::mostralibreria() {
  for (Byte& count : levelcount) count = 0;
  if (!frmlivello::visible) load();
  frmlivello::raised = true;
  Data1.need();
}

void frmmain::libreria() {
  // If the store fails, it does so before the board is touched.
  follow();
  if (numberofpreview()) {
    Data1.movetobookmark(onshow->record);
  } else {
    if (selected() < 1 || selected() > totale) return host.message(outofrange);
    numeroselezionato_Change();
  }
  const std::string leveltext = livelloscelto.text;
  filetxt.text = fmt::format(loaded, leveltext, numeroselezionato.text);
  bkglabel.visible = true;
  suppresschange = true;
  const int level = leadingnumber(leveltext);
  frmlivello::visible = false;
  clearboard();
  libraryrecordopen = true;
  runninglevel = level;
  suppresschange = true;
  putup(txtstringa.text);
  suppresschange = false;
  if (!txtdettaglio.text.empty() || level == 14) testototale.text = fmt::format(total, txttotale.text);
  conta();
  settleboard();  // the counter has used the tables
  if (numerosoluzioni >= 2) return host.message(several);
  // Unlike gradeboard: the pencil marks stay on or off, and the empty boxes keep their colour.
  gradeloaded(repaintboard);
}

void freshbrowser() {
  caption.clear();
  visible = raised = false;
  for (Control& option : Option1) option = {};
  for (Box* box : {&livelloscelto, &numerototale, &numeroselezionato, &dettagliotxt, &difftxt, &id, &Label12,
                   &Label13, &Label15, &Label14, &Label20, &frmlivello::Label1})
    *box = {};
  for (Box& box : LabelL) box = {};
  for (Box& box : Text2) box = {.text = "", .back = white, .fore = red, .visible = false};
  const std::pair<Control*, const char*> buttons[] = {{&Command1, "carica schema"},
                                                      {&Command2, "precedente"},
                                                      {&Command3, "successivo"},
                                                      {&Command4, "ultimo record"},
                                                      {&Command5, "primo record"}};
  for (const auto& [button, words] : buttons) button->caption = words;
  totale = 0;
  onshow.reset();
  listchanged = followifopen;
}

}  // namespace gradino
