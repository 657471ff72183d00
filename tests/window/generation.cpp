// A new puzzle, the continuous generator, and the hidden tools, with a window that responds meanwhile.
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <random>

#include "boxes.h"
#include "grid.h"
#include "host.h"
#include "librarycursor.h"
#include "mainwindow.h"
#include "startup.h"
#include "store.h"
#include "user.h"

using namespace gradino;

class Generation : public QObject {
  Q_OBJECT

 private slots:
  void newpuzzle_data();
  void newpuzzle();
  void alivemeanwhile();
  void closedmeanwhile();
  void clearedmeanwhile();
  void continuous();
  void continuoustells();
  void tools();
  void endoftheearlierlayout();
};

namespace {

/// The same puzzles in each run.
void fixsequence() {
  host.random = [dice = std::mt19937(7)]() mutable { return std::uniform_real_distribution<>(0, 1)(dice); };
}

/// Does something once the job has let events run so many times.
void afterturns(int turns, const std::function<void()>& act) {
  host.runevents = [turns, act, turn = host.runevents]() mutable {
    if (--turns == 0) act();
    turn();
  };
}

/// Runs the program from its event loop's start to its end.
int run(User& user, const std::function<void()>& firstevent) {
  QTimer::singleShot(0, &user, firstevent);
  QTimer::singleShot(60000, &user, [] { QCoreApplication::exit(99); });
  return QCoreApplication::exec();
}

void doubleclickframe(User& user) {
  QTest::mouseDClick(user.window().windowHandle(), Qt::LeftButton, {},
                     user.find("main")->mapTo(&user.window(), user.place("Frame1").center()));
}

QWidget* toplevel(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name) return widget;
  return nullptr;
}

}  // namespace

void Generation::newpuzzle_data() {
  QTest::addColumn<QString>("command");
  QTest::newRow("menu") << "mnuadvanced";
  QTest::newRow("key") << "Toolbar2_genera";
}
void Generation::newpuzzle() {
  User user;
  fixsequence();
  QFETCH(QString, command);
  command.startsWith("mnu") ? user.choose(command) : user.press(command);
  QCOMPARE(user.text("filetxt"), "new puzzle");
  int filled = 0;
  for (int cell = 0; cell < 81; ++cell) {
    const QString name = QString("Text1_%1").arg(cell), mirror = QString("Text1_%1").arg(80 - cell);
    QCOMPARE(user.text(name).isEmpty(), user.text(mirror).isEmpty());
    QCOMPARE(user.find(name)->palette().color(QPalette::Text).red(), user.text(name).isEmpty() ? 0 : 255);
    if (!user.text(name).isEmpty()) ++filled;
  }
  QCOMPARE(user.text("txtesposti"), QString::number(filled));
  QCOMPARE(user.text("txtvuoti"), QString::number(81 - filled));
  QVERIFY(filled > 16 && filled < 40);
  QVERIFY(!user.text("txtlivello").isEmpty());
  QCOMPARE(user.menu("mnupencil")->isChecked(), command == "Toolbar2_genera");
  QVERIFY(!suppresschange);
  QCOMPARE(user.boxes, QStringList());
}

// The board fills visibly, the language switches, and typing meanwhile does no harm.
void Generation::alivemeanwhile() {
  User user;
  fixsequence();
  int seen = 0;
  afterturns(20, [&] {
    for (int cell = 0; cell < 81; ++cell)
      if (!user.text(QString("Text1_%1").arg(cell)).isEmpty()) ++seen;
    user.press("cmdlan");
    user.press("Text1_40");
    user.press("Picture1_5");
  });
  // The board is shown no more often than a screen can, and the first turn is to be such a time.
  QTest::qWait(500);
  user.choose("mnuadvanced");
  QVERIFY2(seen >= 20, qPrintable(QString::number(seen)));
  QCOMPARE(user.menu("mnuopen")->text(), "Apri");
  QCOMPARE(user.text("filetxt"), "new puzzle");
  QCOMPARE(user.text("txtesposti").toInt() + user.text("txtvuoti").toInt(), 81);
}

void Generation::closedmeanwhile() {
  User user;
  fixsequence();
  QElapsedTimer since;
  afterturns(20, [&] {
    since.start();
    user.window().close();
  });
  QCOMPARE(run(user, [&] { user.press("Toolbar2_genera"); }), 0);
  QVERIFY(since.isValid() && since.elapsed() < 1000);
  QVERIFY(!user.window().isVisible());
}

// The menu has no lock: a new blank board in the middle is the end of the generation.
void Generation::clearedmeanwhile() {
  User user;
  fixsequence();
  afterturns(20, [&] { user.choose("mnunew"); });
  user.choose("mnuadvanced");
  QCOMPARE(user.text("filetxt"), "nuovo schema");
  for (int cell = 0; cell < 81; ++cell) QCOMPARE(user.text(QString("Text1_%1").arg(cell)), "");
  QVERIFY(!suppresschange);
}

// All puzzles in the list are in the library when the window is closed; the program ends at once.
void Generation::continuous() {
  const QTemporaryDir folder;
  apppath = folder.path().toStdString();
  int listed = 0;
  {
    User user;
    fixsequence();
    doubleclickframe(user);
    QElapsedTimer since;
    QTimer eye;
    eye.callOnTimeout(&user, [&] {
      const QWidget* list = toplevel("frmgeneratore");
      if (list == nullptr || !list->isVisible()) return;
      const QString text = list->findChild<QPlainTextEdit*>()->toPlainText();
      listed = static_cast<int>(text.count(" schema "));
      if (listed < 2 || since.isValid()) return;
      QVERIFY(toplevel("frmactivity")->isVisible());
      QVERIFY2(text.contains(" schema 8372\n"), qPrintable(text));
      user.press("cmdlan");
      QCOMPARE(user.menu("mnuopen")->text(), "Apri");
      since.start();
      user.window().close();
    });
    eye.start(10);
    QCOMPARE(run(user, [&] { user.press("Toolbar2_continuo"); }), 0);
    QVERIFY(since.isValid() && since.elapsed() < 1000);
    QCOMPARE(user.boxes, QStringList());
  }
  closelibrary();
  apppath.clear();
  Store store((folder.path() + "/schemigenerati.mdb").toStdString());
  QVERIFY(store.count(wholetable) >= listed);
  QCOMPARE(QString::fromStdString(store.at(wholetable, 0)->row[field::progressivo]), "8371");
  QVERIFY(ispuzzle(store.at(wholetable, 1)->row[field::stringa]));
}

/// A text of the reductions, newest first, whole or as far as it has come.
bool tellsofreductions(const QString& text) {
  return text.startsWith("beginning = ") || text.startsWith("coppia analizzata ") ||
         text.startsWith("1 RIDUZIONE ESEGUITA ") || text.startsWith("executed ");
}

// Most of the time is spent on tries, during which the text of the last puzzle is gone from the box.
void Generation::continuoustells() {
  const QTemporaryDir folder;
  apppath = folder.path().toStdString();
  QStringList texts;
  int blank = 0, withoutaword = 0;
  {
    User user;
    fixsequence();
    doubleclickframe(user);
    const auto look = [&] {
      const QWidget* explanations = toplevel("frmactivity");
      if (explanations == nullptr || !explanations->isVisible()) return;
      const QString text = explanations->findChild<QPlainTextEdit*>()->toPlainText();
      if (frmactivity::Text3.text.empty()) ++withoutaword;
      if (text.isEmpty()) {
        if (!texts.isEmpty()) ++blank;
      } else if (texts.isEmpty() || texts.last() != text) {
        texts << text;
      }
      if (texts.size() >= 5 && withoutaword >= 20) user.window().close();
    };
    host.runevents = [look, turn = host.runevents] {
      turn();
      look();
    };
    QCOMPARE(run(user, [&] { user.press("Toolbar2_continuo"); }), 0);
  }
  closelibrary();
  apppath.clear();
  QCOMPARE(blank, 0);
  for (const QString& text : texts) QVERIFY2(tellsofreductions(text), qPrintable(text));
}

void Generation::tools() {
  User user;
  for (const bool shown : {false, true, false, true}) {
    QCOMPARE(user.shown("cmdnice"), shown);
    QCOMPARE(user.shown("Toolbar2_continuo"), shown);
    doubleclickframe(user);
  }
}

// The failure is shown, and the program ends properly.
void Generation::endoftheearlierlayout() {
  for (const bool italian : {false, true}) {
    User user;
    if (italian) user.press("cmdlan");
    doubleclickframe(user);
    QCOMPARE(run(user, [&] { user.press("cmdnice"); }), 0);
    QCOMPARE(user.boxes,
             QStringList{italian ? "Errore: la casella candidate(1) esiste già. Il programma termina."
                                 : "Error: the box candidate(1) exists already. The program ends."});
    user.choose("mnupencil");
    QVERIFY(!user.menu("mnupencil")->isChecked());
  }
}

WINDOW_TESTS(Generation)
#include "generation.moc"
