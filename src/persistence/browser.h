// The library browser frmlivello: the user picks a level, steps through its puzzles from the hardest on with
// a small preview, and loads one.
#pragma once

#include <array>
#include <string_view>

#include "boxes.h"
#include "words.h"

namespace gradino {

/// The window as data. Its words are in the language in force when it was loaded.
namespace frmlivello {
inline std::string caption;
inline bool visible = false;
/// A request: ui/qt brings the window to the front and clears it.
inline bool raised = false;
inline Table<Control, 0, 22> Option1{"Option1"};  ///< the levels; the 23rd lies on top of the 21st
inline Table<Box, 0, 21> LabelL{"LabelL"};        ///< the levels' names
inline Box livelloscelto, numerototale, numeroselezionato, dettagliotxt, difftxt, id;
inline Box Label12, Label13, Label15, Label14, Label20, Label1;
inline Table<Box, 0, 80> Text2{"Text2"};  ///< the preview
inline Control Command1, Command2, Command3, Command4, Command5;

/// The coordinate of row or column n of the preview, from the origin of the grid, in twentieths of a point.
constexpr int previewplace(int n) {
  return 200 * n + 40 * (n / 3);
}
inline constexpr int previewsize = 200;

void Option1_Click(int index);
/// The user typed a number.
void numeroselezionato_Typed(std::string_view text);
void Command1_Click();  ///< load to the board
void Command2_Click();  ///< previous
void Command3_Click();  ///< next
void Command4_Click();  ///< last
void Command5_Click();  ///< first
}  // namespace frmlivello

namespace frmmain {

/// Opens the browser beside the board.
void mostralibreria();

/// Puts the selected puzzle on the board, counts and grades it. Throws LibraryFailure before the board is
/// touched when there is no such puzzle.
void libreria();

}  // namespace frmmain

/// The browser as in a program just started.
void freshbrowser();

}  // namespace gradino
