// What the main window shows or hides on demand.
#pragma once

namespace gradino {

/// Whether the pencil marks are on: the check mark of the menu entry mnupencil.
bool pencilmarks();

/// Toggles the pencil marks. On: empty digit boxes are hidden, which uncovers them. Off: all are shown.
void mnupencil_Click();

}  // namespace gradino
