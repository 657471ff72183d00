#include "grid.h"

#include <string>

namespace gradino {
namespace {

// What the cell held before is deliberately ignored: overwriting a digit with another one counts one more
// filled cell, and emptying a box whose text was no number counts one less.
void text1changed(int cell) {
  cellvalue(cell) = leadingnumber(frmmain::Text1(cell).text);
  rebuildusedmask();
  if (cellvalue(cell) != 0) {
    candmask(cell) = 0;
    filledcount += 1;
  } else {
    filledcount -= 1;
    candmask(cell) = fullmask - usedmask(cell);
  }
  showcounts();
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

// candstr takes the text as typed, including any other characters.
void text2changed(int cell) {
  const std::string& text = frmmain::Text2(cell).text;
  candmask(cell) = 0;
  for (int digit = 1; digit <= 9; ++digit)
    if (text.find(static_cast<char>('0' + digit)) != std::string::npos) candmask(cell) |= bitvalue(digit);
  candstr(cell) = text;
}

}  // namespace

void writetext1(int cell, std::string_view text) {
  Box& box = frmmain::Text1(cell);
  if (box.text == text) return;
  box.text = text;
  if (!text.empty()) box.visible = true;
  if (suppresschange) return;
  try {
    text1changed(cell);
  } catch (Fault& fault) {
    if (!fault.cell)
      fault.cell = cell;  // it may name another cell already, since each change looks at all cells
    throw;
  }
}

void writetext2(int cell, std::string_view text) {
  Box& box = frmmain::Text2(cell);
  if (box.text == text) return;
  box.text = text;
  if (modificacandidati) text2changed(cell);
}

void updatetext2() {
  for (int cell = 0; cell < cellcount; ++cell) {
    frmmain::Text2(cell).text.clear();  // a repaint is no edit: marks being edited elsewhere are not lost
    unsigned open = 0;
    for (const char sign : candstr(cell))
      if (sign >= '1' && sign <= '9') open |= 1U << (sign - '0');
    Box* const marks = &frmmain::candidate(cell * 10);
    for (int digit = 1; digit <= 9; ++digit) marks[digit].visible = (open >> digit & 1U) != 0;
  }
}

void showdeletions() {
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

void clearcolours() {
  for (int cell = 0; cell < cellcount; ++cell) {
    frmmain::Text2(cell).back = white;
    frmmain::Text1(cell).back = white;
    for (int digit = 1; digit <= 9; ++digit) frmmain::candidate(cell * 10 + digit).back = white;
  }
}

void showcounts() {
  frmmain::txtesposti.text = std::to_string(filledcount);
  frmmain::txtvuoti.text = std::to_string(cellcount - filledcount);
}

void rebuildwhole() {
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

void restoregivens() {
  filledcount = 0;
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (givens(cell).empty()) {
      cellvalue(cell) = 0;
      writetext1(cell, "");
    } else {
      cellvalue(cell) = leadingnumber(givens(cell));
      candmask(cell) = 0;
      filledcount += 1;
    }
  }
  suppresschange = false;
  rebuildwhole();
}

void loadgivens() {
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    cellvalue(cell) = givens(cell).empty() ? 0 : leadingnumber(givens(cell));
    if (!givens(cell).empty()) filledcount += 1;
  }
  showcounts();
}

}  // namespace gradino
