#include "user.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QWindow>

#include "boxes.h"
#include "host.h"
#include "light.h"
#include "look.h"
#include "mainwindow.h"
#include "startup.h"

namespace gradino {

User::User() {
  startprogram();
  window_ = std::make_unique<MainWindow>();
  window_->show();
  if (!QTest::qWaitForWindowActive(window_.get(), patience)) qFatal("the window doesn't come up");
  // After its first painting the window adds what its digits cover.
  const auto complete = [this] { return window_->findChild<QWidget*>("Text2_80") != nullptr; };
  if (!QTest::qWaitFor(complete, patience)) qFatal("the window stays without pencil marks");
  host.waitevents = [this, wait = host.waitevents] {
    waitasks();
    wait();
  };
  eyes_.callOnTimeout(this, [this] { answermodal(); });
  eyes_.start(5);
}

User::~User() = default;

void User::waitasks() {
  if (reacting_) return;
  reacting_ = true;
  QTimer::singleShot(0, this, [this] {
    reacting_ = false;
    ++asked;
    if (onwait) return onwait();
    if (acts.empty()) {
      QTest::qFail("a wait that nobody answers", __FILE__, __LINE__);
      lightresult = 2;
      return;
    }
    const auto act = acts.front();
    acts.pop_front();
    act();
  });
}

void User::answermodal() {
  QWidget* modal = QApplication::activeModalWidget();
  if (auto* box = dynamic_cast<QMessageBox*>(modal)) {
    if (onbox) return onbox();
    boxes << box->text();
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
  } else if (modal != nullptr) {
    if (ondialog) return ondialog();
    answerdialog(modal);
  }
}

void User::answerdialog(QWidget* dialog) {
  auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
  if (!name->hasFocus()) {  // tried again in a moment: the dialog takes typing only there
    dialog->activateWindow();
    return name->setFocus();
  }
  const auto* combo = dialog->findChild<QComboBox*>("fileTypeCombo");
  QStringList words;
  for (int n = 0; n < combo->count(); ++n) words << combo->itemText(n);
  filters << words.join('|');
  suggestions << name->text();
  const std::optional<QString> answer = names.empty() ? std::nullopt : names.front();
  if (!names.empty()) names.pop_front();
  if (!answer) return QTest::keyClick(dialog, Qt::Key_Escape);
  name->setText(*answer);
  QTest::keyClick(name, Qt::Key_Return);
}

QWidget* User::find(const QString& name) const {
  auto* widget = window_->findChild<QWidget*>(name);
  if (widget == nullptr) qFatal("no widget %s", qPrintable(name));
  return widget;
}

QAction* User::menu(const QString& name) const {
  auto* action = window_->findChild<QAction*>(name);
  if (action == nullptr) qFatal("no entry %s", qPrintable(name));
  return action;
}

QRect User::place(const QString& name) const {
  const QWidget* widget = find(name);
  return {widget->mapTo(find("main"), QPoint(0, 0)), widget->size()};
}

bool User::shown(const QString& name) const {
  const QWidget* widget = find(name);
  return widget->isVisible() && !widget->testAttribute(Qt::WA_TransparentForMouseEvents);
}

QString User::text(const QString& name) const {
  const QWidget* widget = find(name);
  if (auto* label = dynamic_cast<const QLabel*>(widget)) return label->text();
  if (auto* edit = dynamic_cast<const QLineEdit*>(widget)) return edit->text();
  if (auto* edit = dynamic_cast<const QPlainTextEdit*>(widget)) return edit->toPlainText();
  return dynamic_cast<const QAbstractButton*>(widget)->text();
}

QColor User::ground(const QString& name) const {
  return find(name)->palette().color(QPalette::Base);
}

bool User::focused(const QString& name) const {
  return window_->focusWidget() == find(name);
}

QStringList User::ring() const {
  QStringList shownpictures;
  for (int digit = 0; digit <= 9; ++digit)
    if (shown(QString("Picture1_%1").arg(digit))) shownpictures << QString::number(digit);
  return shownpictures;
}

void User::press(const QString& name) {
  const QWidget* widget = find(name);
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                    widget->mapTo(window_.get(), widget->rect().center()));
}

void User::pressat(QPoint place) {
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, find("main")->mapTo(window_.get(), place));
}

void User::moveto(QPoint place) {
  QTest::mouseMove(window_->windowHandle(), find("main")->mapTo(window_.get(), place));
}

void User::choose(const QString& entry) {
  menu(entry)->trigger();
}

void User::key(int key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window_->windowHandle(), Qt::Key(key), modifiers);
}

void User::type(const QString& ascii) {
  for (const QChar c : ascii) QTest::keyClick(window_->windowHandle(), c.toLatin1());
}

QString User::file(const QString& name, const QByteArray& bytes) const {
  const QString path = folder_.filePath(name);
  if (bytes.isEmpty()) return path;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("no file can be written");
  return path;
}

QByteArray User::bytes(const QString& name) const {
  QFile file(folder_.filePath(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

void User::open(const QByteArray& puzzle) {
  names.emplace_back(file("puzzle.sav", puzzle + "\r\n"));
  press("Toolbar2_open");
  comeback();
}

// Without a window manager nothing returns the focus when a dialog has closed.
void User::comeback() {
  window_->activateWindow();
  if (!QTest::qWaitForWindowActive(window_.get(), patience)) qFatal("the window doesn't come back");
}

// No test may print on a real printer.
int runtests(QObject& tests, int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!qEnvironmentVariableIsSet("GRADINO_PRINT_TEST")) qputenv("CUPS_SERVER", "/nonexistent/cups.sock");
  QApplication program(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
  setlook();
  return QTest::qExec(&tests, argc, argv);
}

}  // namespace gradino
