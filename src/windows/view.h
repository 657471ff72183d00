// What the main window shows or hides on demand.
#pragma once

namespace gradino {

/// Whether the pencil marks are on: the check mark of the menu entry mnupencil.
bool pencilmarks();

/// Toggles the pencil marks. On: empty digit boxes are hidden, which uncovers them. Off: all are shown.
void mnupencil_Click();

/// Turns the pencil marks on, unless they are.
void showpencilmarks();

/// How often the pencil marks were switched. A routine that toggles them for a while sees here whether
/// something else has switched them meanwhile.
inline constinit int pencilclicks = 0;

}  // namespace gradino
