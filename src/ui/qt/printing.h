// Printing: a picture of the window's client area, at its size, on the default printer.
#pragma once

class QPrinter;
class QWidget;

namespace gradino {

/// Paints the client area on a printer, or on a PDF that stands for one. Throws std::runtime_error, in the
/// language in force, when the printer can't be reached.
void printclient(QWidget& client, QPrinter& printer);

/// The same on the default printer.
void printwindow(QWidget& client);

}  // namespace gradino
