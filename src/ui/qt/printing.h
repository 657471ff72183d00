// Printing: a picture of the window's client area, at its size, on the default printer.
#pragma once

class QPrinter;
class QString;
class QWidget;

namespace gradino {

/// Paints the client area on a printer, or on a PDF that stands for one. Throws std::runtime_error, in the
/// language in force, when the printer can't be reached.
void printclient(QWidget& client, QPrinter& printer);

/// What is known of a printer's queue.
struct Queue {
  bool rejects = false;  ///< it takes no jobs
  bool stands = false;   ///< it takes them and doesn't print them
};

/// Throws std::runtime_error, in the language in force, when no page would come out of the printer.
void expectpage(const QString& printer, Queue queue);

/// Paints the client area on the default printer, if there is one and it prints.
void printwindow(QWidget& client);

}  // namespace gradino
