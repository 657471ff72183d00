#include "editing.h"

#include <string>

#include "boxes.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "menu.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino {

using namespace frmmain;

namespace {

constexpr Words lightwaits = {"per procedere, cliccare sul semaforo verde",
                              "to proceed, click on green traffic light"};
constexpr Words tipedit = {"modifica candidati", "edit pencil marks"};
constexpr Words tipfreeze = {"blocca candidati", "freeze pencil marks"};

/// How far the pointer may move from the clicked cell, in cell numbers, before the ring closes.
constexpr int ringreach = 11;

void showring(bool visible) {
  for (Control& picture : Picture1) picture.visible = visible;
}

void openring(int cell) {
  cellacliccata = cell;
  showring(true);
}

void focusdigit(int cell) {
  Text1(cell).visible = true;
  focusrequest = {.on = Focus::On::text1, .cell = cell};
}

}  // namespace

// clang-format off
//  r1c1 of the picture:     1   2   3
//                         0 +-------+
//                           |       | 4
//                         9 | Text1 |
//                           |       | 5
//                         8 +-------+
//                           7   6
const std::array<Offset, 10> ringoffsets{{
    {-23, -18}, { -2, -24}, { 19, -24}, { 40, -18}, { 40,   3},   // 0 to 4
    { 40,  24}, { 19,  36}, { -2,  36}, {-23,  24}, {-23,   3},   // 5 to 9
}};
// clang-format on

bool refusedbylight() {
  if (!waiting()) return false;
  host.message(std::string(inlanguage(lightwaits)));
  return true;
}

void Text1_Click(int cell) {
  if (!refusedbylight()) openring(cell);
}

void Text2_Click(int cell) {
  if (colorescelto > 0) {
    Text2(cell).back = colorescelto;
    return;
  }
  if (refusedbylight() || Toolbar1::modifica.ticked) return;
  focusdigit(cell);
  Text2(cell).back = white;
  openring(cell);
}

void candidate_Click(int index) {
  const int cell = index / 10;
  if (modificacandidati) {
    writetext2(cell, candstr(cell));
    for (int digit = 1; digit <= 9; ++digit) candidate(cell * 10 + digit).visible = false;
    focusrequest = {.on = Focus::On::text2, .cell = cell};
    return;
  }
  if (Toolbar1::modifica.ticked) return;
  focusdigit(cell);
  openring(cell);
}

void Picture1_Click(int digit) {
  writetext1(cellacliccata, digit > 0 ? std::to_string(digit) : "");
  showring(false);
}

// The test uses the cell numbers, not the distance on the screen.
void cell_MouseMove(int cell) {
  if (cell < cellacliccata - ringreach || cell > cellacliccata + ringreach) showring(false);
}

void Text1_KeyDown(int cell, int code) {
  switch (code) {
    case 37:
      navcell = cell == 0 ? 80 : cell - 1;
      break;
    case 38:
      navcell = cell < 9 ? cell + 72 : cell - 9;
      break;
    case 39:
      navcell = cell == 80 ? 0 : cell + 1;
      break;
    case 40:
      navcell = cell >= 72 ? cell + 9 - 81 : cell + 9;
      break;
    default:
      break;
  }
  focusrequest = {.on = Focus::On::text1, .cell = navcell};
}

void Text1_Typed(int cell, std::string_view text) {
  writetext1(cell, text);
}
void Text2_Typed(int cell, std::string_view text) {
  writetext2(cell, text);
}

void modifica_Click() {
  Control& button = Toolbar1::modifica;
  button.ticked = modificacandidati = !button.ticked;
  button.tip = inlanguage(button.ticked ? tipfreeze : tipedit);
  if (!button.ticked) updatetext2();
}

void mnuedit_Click() {
  Control& button = Toolbar1::modifica;
  button.ticked = modificacandidati = !button.ticked;
  button.tip = inlanguage(button.ticked ? tipedit : tipfreeze);
}

void colore_Click(int n) {
  if (!pencilmarks()) mnupencil_Click();
  colorescelto = colore(n).back;
  if (n == 8) {
    clearcolours();
    colorescelto = 0;
  }
}

}  // namespace gradino
