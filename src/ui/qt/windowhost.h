// The host of the program in windows.
#pragma once

class QWidget;

namespace gradino {

/// Connects the program with the user, the clock, the printer and the event loop through this main window,
/// whose client area is printed.
void usewindows(QWidget& mainwindow, QWidget& client);

}  // namespace gradino
