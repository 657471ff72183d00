// What the user does on the board: the ring of digits, keys, pencil marks, the palette.
#pragma once

#include <array>
#include <string_view>

namespace gradino {

/// The cell that the ring belongs to.
inline constinit int cellacliccata = 0;

/// The cell last reached by the arrow keys: what is typed goes there, whatever was clicked.
inline constinit int navcell = 0;

/// The positions of the pictures 0 to 9 of the ring, in pixels from the top left corner of
/// Text1(cellacliccata).
struct Offset {
  int x, y;
};
extern const std::array<Offset, 10> ringoffsets;

// Events, each with the index of its box. The first two clicks refuse during a wait.
void Text1_Click(int cell);
void Text2_Click(int cell);
void candidate_Click(int index);
void Picture1_Click(int digit);
void cell_MouseMove(int cell);  ///< over Text1 or Text2; a pencil mark gets no such event
void colore_Click(int n);

/// A key was pressed in Text1(cell). Windows key codes: 37 left, 38 up, 39 right, 40 down; all others are
/// alike. Asks for the focus on Text1(navcell), where the key's character then goes.
void Text1_KeyDown(int cell, int code);

// The user has typed: the new text of the box.
void Text1_Typed(int cell, std::string_view text);
void Text2_Typed(int cell, std::string_view text);

/// The two switches of pencil-mark editing. Their tool tips are opposite, and only the one of the toolbar
/// shows the small boxes again. Both depend on whether the button of the toolbar is pressed.
void modifica_Click();
void mnuedit_Click();

/// Shows a message that the light waits. False: no wait is open.
bool refusedbylight();

}  // namespace gradino
