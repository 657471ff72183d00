#include "windowhost.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QTime>

#include "events.h"
#include "filedialog.h"
#include "host.h"
#include "printing.h"
#include "screenreader.h"

namespace gradino {
namespace {

/// A long job calls this very often: mostly there is no new event, and the screen can't show more. Updates
/// may take a fifth of the time of the job, so that they hardly slow it.
class Frames {
 public:
  template <class Show>
  void show(Show show) {
    if (rest_.isValid() && !rest_.hasExpired(restmilliseconds_)) return;
    QElapsedTimer shown;
    shown.start();
    show();
    restmilliseconds_ = qMax<qint64>(framemilliseconds, 5 * shown.elapsed());
    rest_.start();
  }

 private:
  static constexpr qint64 framemilliseconds = 16;
  QElapsedTimer rest_;
  qint64 restmilliseconds_ = 0;
};
Frames frames;

void letwaitingrun() {
  frames.show([] {
    {
      const Hush hush;
      showchanges();
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    leaveifended();
  });
}

/// A single box for all messages of an unattended run; it shows the latest.
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
  host.waitevents = [] {
    showchanges();
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    leaveifended();
  };
  host.repaint = [] {
    frames.show([] {
      const Hush hush;
      showchanges();
      for (QWidget* window : QApplication::topLevelWidgets()) window->repaint();
    });
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
