// The board as the user sees it: the cell boxes wired to the tables.
#pragma once

#include <string_view>

#include "boxes.h"
#include "tables.h"

namespace gradino {

/// True while the program itself writes into Text1: the change handling then does nothing.
inline constinit bool suppresschange = false;

/// True while pencil marks can be edited.
inline constinit bool modificacandidati = false;

/// The palette colour now chosen, 0 for none.
inline constinit Colour colorescelto = 0;

/// Writes the digit box of a cell, for the program or the user. If the text is new, the box takes it and
/// becomes visible unless it is empty, and the tables follow unless suppresschange is set: value, masks,
/// counts, pencil marks, positions. This is how the main window places a digit. Fault: a number above 9,
/// filledcount below 0.
void writetext1(int cell, std::string_view text);

/// Writes a cell's pencil-mark box. While modificacandidati is set the tables follow.
void writetext2(int cell, std::string_view text);

/// Repaints the pencil marks from candstr: each small box visible or not. Empties Text2.
void updatetext2();

/// The pencil mark of a digit in a cell.
inline Box& pencilmark(int cell, int digit) {
  return frmmain::candidate(cell * 10 + digit);
}

/// After a step of the main window has deleted candidates: candstr, pencil marks, positions.
void showdeletions();

/// Sets the background of every cell box and pencil mark to white.
void clearcolours();

/// Shows the numbers of filled and empty cells in txtesposti and txtvuoti.
void showcounts();

/// Rebuilds all tables from the digits of the board: eliminations are forgotten.
void rebuildwhole();

/// Puts the board back to the givens. The boxes of given cells keep their text.
void restoregivens();

/// Reads the values from the givens again, and shows the counts. The boxes stay.
void loadgivens();

}  // namespace gradino
