#include "boxes.h"

#include <string>

#include "houses.h"
#include "library.h"
#include "menu.h"

namespace gradino {

using namespace frmmain;

namespace {

const Box digitbox{.text = "", .back = white, .fore = red, .visible = true};
const Box hiddenbox{.text = "", .back = white, .fore = textcolor, .visible = false};
const Control hidden{.caption = "", .tip = "", .visible = false, .ticked = false};

Box panelbox(const char* text) {
  return {.text = text, .back = white, .fore = textcolor, .visible = true};
}

const auto marks = [] {
  ByDigit<Box> boxes;
  for (int digit = 1; digit <= 9; ++digit) boxes[digit] = panelbox(std::to_string(digit).c_str());
  return boxes;
}();

/// Most boxes of a session are as they were at its start, and comparing takes a fraction of copying.
void renew(Box& box, const Box& fresh) {
  if (box != fresh) box = fresh;
}

void freshcells() {
  for (Box& box : Text1) renew(box, digitbox);
  for (Box& box : Text2) renew(box, {});
  for (int cell = 0; cell < cellcount; ++cell)
    for (int digit = 1; digit <= 9; ++digit) renew(candidate(cell * 10 + digit), marks[digit]);
  candidate(0) = panelbox("8");  // the template of the others
}

void freshpanel() {
  for (Box* box : {&txthint, &filetxt, &txtlivello, &testototale, &txtlivello1, &txtesposti, &txtvuoti,
                   &lblfile, &Label1, &Label5})
    *box = {};
  Label3 = Text5 = hiddenbox;  // until mnunumber
  Label2 = panelbox("timer");
  tempotot = panelbox("0");
  bkglabel = {.text = "bkg", .visible = false};  // shown while a puzzle is being loaded
}

// Until the first record is loaded, each shows its own name.
void freshbound() {
  txtprogressivo = panelbox("Text3");
  txtstringa = panelbox("txtstringa");
  txtdettaglio = panelbox("txtdettaglio");
  testolivello = panelbox("testolivello");
  tempo = panelbox("tempo");
  txtnumeri = panelbox("txtnumeri");
  txtsuper = panelbox("txtsuper");
  txttotale = panelbox("txttotale");
  for (Box& box : liv) box = panelbox("liv");
}

void freshpictures() {
  Pictgo = {.caption = "", .tip = "procedi ", .visible = false, .ticked = false};
  Pictalt = {.caption = "", .tip = "stop", .visible = false, .ticked = false};
  Picthelp = {.caption = "", .tip = "spiega", .visible = false, .ticked = false};
  picstart = {.caption = "", .tip = "start timer", .visible = true, .ticked = false};
  picstartlamp = Lamp::verde;
  Picture2 = {.caption = "", .tip = "reset timer", .visible = true, .ticked = false};
  cmdlan = {};
  cmdlanflag = Flag::it;
  cmdimpossibili = {.caption = "", .tip = "candidati impossibili", .visible = true, .ticked = false};
  Cmdtest = {.caption = "", .tip = "testa il tuo pc", .visible = false, .ticked = false};
  cmdnice = {.caption = "", .tip = "nice loops", .visible = false, .ticked = false};
  Check1 = {.caption = "genera schemi supersimmetrici", .tip = "", .visible = false, .ticked = true};
  for (Control& picture : Picture1) picture = hidden;

  static constexpr Colour palette[] = {yellow, orange, green, cyan, white, lightblue, magenta, red, white};
  for (int n = 0; n <= 8; ++n) colore(n) = {.text = n == 8 ? "X" : "", .back = palette[n]};
}

void freshmenus() {
#define TITLE(control, ...) control = {};
#define ENTRY(control, ...) control = {};
#include "menu.def"
#define KEY(control, ...) Toolbar1::control = {};
#define GAP
#include "toolbar1.def"
#define KEY(control, ...) Toolbar2::control = {};
#define GAP
#include "toolbar2.def"
  Toolbar1::modifica.tip = "edit pencil marks";
  Toolbar2::continuo.visible = false;
}

}  // namespace

void freshboxes() {
  freshcells();
  freshpanel();
  freshbound();
  freshpictures();
  freshmenus();
  focusrequest = {};
  CD1 = {};
  Frmlog::caption.clear();
  Frmlog::visible = false;
  Frmlog::Text3 = {};
  frmactivity::caption = "Spiegazioni";
  frmactivity::visible = false;
  frmactivity::left = frmactivity::top = 0;
  frmactivity::placed = true;
  frmactivity::Text3 = {};
  frmgeneratore::caption = "Avanzamento";
  frmgeneratore::visible = false;
  frmgeneratore::Text1 = {};
  frmprogress::visible = false;
  frmprogress::Text1 = {};
}

}  // namespace gradino
