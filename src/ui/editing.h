// The user's hand on the board: the ring of digits, keys, pencil marks, the palette.
#pragma once

#include <array>
#include <string_view>

namespace gradino {

/// The cell that the ring belongs to.
inline constinit int cellacliccata = 0;

/// The cell last reached by the arrow keys: what is typed goes there, whatever was clicked.
inline constinit int navcell = 0;

/// Where the ring's pictures 0 to 9 stand, in pixels from the top left corner of Text1(cellacliccata).
struct Offset {
  int x, y;
};
extern const std::array<Offset, 10> ringoffsets;

// Events, each with the index of its box. The first two clicks refuse during a wait.
void Text1_Click(int cell);
void Text2_Click(int cell);
void candidate_Click(int index);
void Picture1_Click(int digit);
void cell_MouseMove(int cell);  ///< over Text1 or Text2; over a pencil mark nothing is noticed
void colore_Click(int n);

/// A key went down in Text1(cell): Windows key codes, 37 left, 38 up, 39 right, 40 down; all others alike.
/// Asks for the focus on Text1(navcell), where the key's character then goes.
void Text1_KeyDown(int cell, int code);

// What the user typed is in the box: the box's new text.
void Text1_Typed(int cell, std::string_view text);
void Text2_Typed(int cell, std::string_view text);

/// The two switches of pencil-mark editing. Their tool tips are each other's reverse, and only the toolbar's
/// brings the small boxes back. Both go by whether the toolbar's button is pressed.
void modifica_Click();
void mnuedit_Click();

/// Tells the user that the light waits. False: no wait is open.
bool refusedbylight();

}  // namespace gradino
