#include "windowhost.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTime>

#include "events.h"
#include "filedialog.h"
#include "host.h"

namespace gradino {
namespace {

void letevents(QEventLoop::ProcessEventsFlags how) {
  showchanges();
  QCoreApplication::processEvents(how);
  leaveifended();
}

void tell(QWidget& mainwindow, const std::string& text) {
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

void usewindows(QWidget& mainwindow) {
  host.runevents = [] { letevents(QEventLoop::AllEvents); };
  host.waitevents = [] { letevents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents); };
  host.repaint = [&mainwindow] {
    showchanges();
    mainwindow.repaint();
  };
  host.message = [&mainwindow](const std::string& text) { tell(mainwindow, text); };
  host.showopen = [&mainwindow](CommonDialog& dialog) { askopen(&mainwindow, dialog); };
  host.showsave = [&mainwindow](CommonDialog& dialog) { asksave(&mainwindow, dialog); };
  host.clock = secondssincemidnight;
}

}  // namespace gradino
