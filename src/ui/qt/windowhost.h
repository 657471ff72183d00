// The program's host while it runs in windows.
#pragma once

class QWidget;

namespace gradino {

/// Lets the program ask the user, the clock, the printer and the event loop through this main window, whose
/// client area is what prints.
void usewindows(QWidget& mainwindow, QWidget& client);

}  // namespace gradino
