// Printing: a picture of the window's client area, at its size, on the default printer.
#pragma once

class QPrinter;
class QString;
class QWidget;

namespace gradino {

/// Paints the client area on a printer, or to a PDF instead. Throws std::runtime_error, in the language in
/// force, when the printer can't be reached.
void printclient(QWidget& client, QPrinter& printer);

/// The state of the queue of a printer.
struct Queue {
  bool rejects = false;  ///< it takes no jobs
  bool stands = false;   ///< it takes jobs and doesn't print them
};

/// Throws std::runtime_error, in the language in force, if the printer would not print.
void expectpage(const QString& printer, Queue queue);

/// Paints the client area on the default printer, if there is one and it prints.
void printwindow(QWidget& client);

}  // namespace gradino
