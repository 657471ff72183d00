// Opening and saving through the real file dialog.
#include <QComboBox>
#include <QDir>
#include <QFileDialog>

#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Files : public QObject {
  Q_OBJECT

 private slots:
  void opens();
  void openfilter();
  void patterns();
  void keepsitsname();
  void relativename();
  void cancelledopen();
  void missingfile();
  void saves();
  void suggestedname();
  void fullboardsavesgivens();
  void folderthatcannotbewritten();
};

namespace {

const QString openwords =
    "Puzzle salvati (*.sav)|File di testo (*.txt)|schemi (*.sas)|sudokusol (*.sdk;*.txt)|"
    "Tutti i formati (*.sav;*.sdk;*.txt;*.lgc)";
const QString savewords = "Puzzle salvati (*.sav)|File di testo (*.txt)|sudokusol (*.sdk)|logicando (*.lgc)";

}  // namespace

void Files::opens() {
  User user;
  user.open(easypuzzle);
  QCOMPARE(user.text("filetxt"), user.file("puzzle.sav"));
  QCOMPARE(user.text("Text1_0"), "5");
  QCOMPARE(user.text("Text1_2"), "");
  QVERIFY(user.shown("Text1_0"));
  QVERIFY(!user.shown("Text1_2"));  // pencil marks are on
  QVERIFY(user.shown("candidate_21") && user.shown("candidate_24") && !user.shown("candidate_23"));
  QVERIFY(user.menu("mnupencil")->isChecked());
  QCOMPARE(user.text("txtesposti"), "30");
  QCOMPARE(user.text("txtvuoti"), "51");
  QVERIFY(user.text("txtlivello").startsWith("VERY EASY"));
  QVERIFY(!user.shown("bkglabel"));
  QCOMPARE(user.boxes, QStringList());
}

void Files::openfilter() {
  User user;
  user.press("Toolbar2_open");
  QCOMPARE(user.filters, QStringList{openwords});
  QCOMPARE(user.suggestions, QStringList{""});
}

// The words are only shown; what is listed goes by the patterns behind them.
void Files::patterns() {
  User user;
  QStringList listed;
  user.ondialog = [&] {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    listed = dialog->nameFilters();
    QTest::keyClick(dialog, Qt::Key_Escape);
  };
  user.press("Toolbar2_open");
  QCOMPARE(listed.value(3), "sudokusol (*.sdk *.txt)");
  QCOMPARE(listed.value(4), "Tutti i formati (*.sav *.sdk *.txt *.lgc)");
  QCOMPARE(listed.size(), 5);
}

void Files::keepsitsname() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar2_open");  // cancelled: the name stays, and the same file is opened again
  QCOMPARE(user.suggestions.value(1), "puzzle.sav");
  QCOMPARE(user.text("Text1_0"), "5");
}

// What is typed without a folder lies in the one that the dialog shows; nothing is put behind the name.
void Files::relativename() {
  User user;
  user.open(easypuzzle);
  user.file("other", easypuzzle);
  user.names = {"other"};
  user.choose("mnuopen");
  QCOMPARE(user.text("filetxt"), user.file("other"));
  QCOMPARE(user.text("Text1_0"), "5");
}

void Files::cancelledopen() {
  User user;
  user.press("Toolbar2_open");
  QCOMPARE(user.boxes, QStringList());
  QCOMPARE(user.text("filetxt"), "");
}

void Files::missingfile() {
  User user;
  user.names = {user.file("none.sav")};
  user.choose("mnuopen");
  QCOMPARE(user.boxes, QStringList{"error on saving process"});
}

void Files::saves() {
  User user;
  user.open(easypuzzle);
  user.file("mine.sav", "an older file");  // replaced without a question
  user.names = {user.file("mine.sav")};
  user.choose("mnusave");
  QCOMPARE(user.filters.value(1), savewords);
  QCOMPARE(user.bytes("mine.sav"), easypuzzle + "\r\n");
  QCOMPARE(user.text("filetxt"), user.file("mine.sav"));
  QCOMPARE(user.boxes, QStringList());
}

// The suggested name is the short form of the steps, blank and all.
void Files::suggestedname() {
  User user;
  const QByteArray puzzle =
      ".......1.4.........2...........5.4.7..8...3....1.9....3..4..2...5.1........8.6...";
  user.open(puzzle);
  user.names = {user.file("mine.sav")};
  user.choose("mnusave");
  QCOMPARE(user.suggestions.value(1), "1x2 ");
  QCOMPARE(user.bytes("mine.sav"), puzzle + "\r\n");
}

void Files::fullboardsavesgivens() {
  User user;
  user.open(easypuzzle);
  user.choose("mnusolve");
  QCOMPARE(user.text("txtesposti"), "81");
  user.names = {user.file("whole.sav")};
  user.choose("mnusave");
  QCOMPARE(user.bytes("whole.sav"), easysolution + "\r\n");

  user.open(easypuzzle);
  user.choose("mnusolve");
  user.names = {user.file("givens.sav")};
  user.press("Toolbar2_save");
  QCOMPARE(user.bytes("givens.sav"), easypuzzle + "\r\n");
}

void Files::folderthatcannotbewritten() {
  User user;
  user.open(easypuzzle);
  user.names = {"/proc/nowhere.sav"};
  user.choose("mnusave");
  QCOMPARE(user.boxes.size(), 1);
  QVERIFY(user.boxes[0].contains("/proc/nowhere.sav"));
  QCOMPARE(user.text("filetxt"), user.file("puzzle.sav"));
  user.press("Text1_80");  // and the program lives on
  QCOMPARE(user.ring().size(), 10);
}

WINDOW_TESTS(Files)
#include "files.moc"
