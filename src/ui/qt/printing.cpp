#include "printing.h"

#include <QLibrary>
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
constexpr Words rejecting = {"La stampante \"{name}\" non accetta stampe. Lo schema resta com'è.",
                             "The printer \"{name}\" takes no jobs. The puzzle stays as it is."};
constexpr Words stopped = {"La stampante \"{name}\" è ferma. Lo schema resta com'è.",
                           "The printer \"{name}\" is stopped. The puzzle stays as it is."};

// The part of the interface of the print server's library that is needed here.
struct Option {
  char *name, *value;
};
struct Destination {
  char *name, *instance;
  int isdefault, count;
  Option* options;
};
using Find = Destination* (*)(void* server, const char* name, const char* instance);
using Look = const char* (*)(const char* option, int count, Option* options);
using Free = void (*)(int count, Destination* found);

/// The toolkit hands a job to the print server and doesn't ask what becomes of it. So the server is asked
/// first, through the library that the toolkit itself has loaded for it. Without that library nothing is
/// known to reject jobs.
Queue queueof(const QString& printer) {
  QLibrary library("cups", 2);
  const auto find = reinterpret_cast<Find>(library.resolve("cupsGetNamedDest"));
  const auto look = reinterpret_cast<Look>(library.resolve("cupsGetOption"));
  const auto free = reinterpret_cast<Free>(library.resolve("cupsFreeDests"));
  if (find == nullptr || look == nullptr || free == nullptr) return {};
  const QByteArray name = printer.section('/', 0, 0).toUtf8(), instance = printer.section('/', 1).toUtf8();
  Destination* queue = find(nullptr, name.constData(), instance.isEmpty() ? nullptr : instance.constData());
  if (queue == nullptr) return {};
  const auto option = [&](const char* asked) {
    return QByteArray(look(asked, queue->count, queue->options));
  };
  constexpr const char* stoppedstate = "5";
  const Queue answer{.rejects = option("printer-is-accepting-jobs") == "false",
                     .stands = option("printer-state") == stoppedstate};
  free(1, queue);
  return answer;
}

}  // namespace

void expectpage(const QString& printer, Queue queue) {
  if (!queue.rejects && !queue.stands) return;
  throw std::runtime_error(say(queue.rejects ? rejecting : stopped, hole("name", printer.toStdString())));
}

void printclient(QWidget& client, QPrinter& printer) {
  QPainter painter;
  const bool begun = painter.begin(&printer);
  // Painted anew rather than copied from the screen: letters are sharp at any resolution of the printer.
  if (begun) client.render(&painter);
  if (!begun || !painter.end() || printer.printerState() == QPrinter::Error)
    throw std::runtime_error(say(unreachable, hole("name", printer.printerName().toStdString())));
}

void printwindow(QWidget& client) {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) throw std::runtime_error(std::string(inlanguage(noprinter)));
  expectpage(info.printerName(), queueof(info.printerName()));
  QPrinter printer(info, QPrinter::ScreenResolution);
  printer.setDocName("Gradino");
  printclient(client, printer);
}

}  // namespace gradino
