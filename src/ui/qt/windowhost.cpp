#include "windowhost.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QTime>

#include "events.h"
#include "filedialog.h"
#include "host.h"
#include "printing.h"

namespace gradino {
namespace {

void letevents(QEventLoop::ProcessEventsFlags how) {
  showchanges();
  QCoreApplication::processEvents(how);
  leaveifended();
}

// A long job asks at every turn: most often nothing has come since, and a screen can't show more.
void letwaitingrun() {
  constexpr int framemilliseconds = 16;
  static QElapsedTimer since;
  if (since.isValid() && !since.hasExpired(framemilliseconds)) return;
  letevents(QEventLoop::AllEvents);
  since.start();
}

/// One box for all that is said while nobody may be there: the newest words stand in it.
void tellandgoon(QWidget& mainwindow, const std::string& text) {
  constexpr const char* name = "unattended";
  auto* box = mainwindow.findChild<QMessageBox*>(name);
  if (box == nullptr) {
    box =
        new QMessageBox(QMessageBox::Information, mainwindow.windowTitle(), "", QMessageBox::Ok, &mainwindow);
    box->setObjectName(name);
    box->setTextFormat(Qt::PlainText);
    box->setModal(false);
  }
  box->setText(QString::fromStdString(text));
  box->show();
}

void tell(QWidget& mainwindow, const std::string& text) {
  if (unattended) return tellandgoon(mainwindow, text);
  showchanges();
  QMessageBox box(QMessageBox::Information, mainwindow.windowTitle(), QString::fromStdString(text),
                  QMessageBox::Ok, &mainwindow);
  box.setTextFormat(Qt::PlainText);
  box.exec();
  leaveifended();
}

double secondssincemidnight() {
  return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

}  // namespace

void usewindows(QWidget& mainwindow, QWidget& client) {
  host.runevents = letwaitingrun;
  host.waitevents = [] { letevents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents); };
  host.repaint = [&mainwindow] {
    showchanges();
    mainwindow.repaint();
  };
  host.message = [&mainwindow](const std::string& text) { tell(mainwindow, text); };
  host.showopen = [&mainwindow](CommonDialog& dialog) { askopen(&mainwindow, dialog); };
  host.showsave = [&mainwindow](CommonDialog& dialog) { asksave(&mainwindow, dialog); };
  host.clock = secondssincemidnight;
  host.print = [&client] { printwindow(client); };
  host.quit = [] {
    endprogram();
    leaveifended();
  };
}

}  // namespace gradino
