// The program's host while it runs in windows.
#pragma once

class QWidget;

namespace gradino {

/// Lets the program ask the user, the clock and the event loop through this main window.
void usewindows(QWidget& mainwindow);

}  // namespace gradino
