#include "printing.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>
#include <stdexcept>
#include <string>

#include "words.h"

namespace gradino {
namespace {

constexpr Words noprinter = {"Nessuna stampante predefinita. Lo schema resta com'è.",
                             "There is no default printer. The puzzle stays as it is."};
constexpr Words unreachable = {"La stampante \"{name}\" non risponde. Lo schema resta com'è.",
                               "The printer \"{name}\" doesn't answer. The puzzle stays as it is."};

}  // namespace

void printclient(QWidget& client, QPrinter& printer) {
  QPainter painter;
  const bool begun = painter.begin(&printer);
  // Drawn anew rather than as a grabbed picture: letters stay sharp however finely the printer prints.
  if (begun) client.render(&painter);
  if (!begun || !painter.end() || printer.printerState() == QPrinter::Error)
    throw std::runtime_error(say(unreachable, hole("name", printer.printerName().toStdString())));
}

void printwindow(QWidget& client) {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) throw std::runtime_error(std::string(inlanguage(noprinter)));
  QPrinter printer(info, QPrinter::ScreenResolution);
  printer.setDocName("Gradino");
  printclient(client, printer);
}

}  // namespace gradino
