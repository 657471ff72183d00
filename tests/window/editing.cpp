// What the user does on the board: ring, keys, pencil marks, palette.
#include "editing.h"

#include <QAction>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Editing : public QObject {
  Q_OBJECT

 private slots:
  void ringopens_data();
  void ringopens();
  void ringenters();
  void ringclears();
  void ringmoves();
  void ringcloses_data();
  void ringcloses();
  void ringovermarks();
  void rightbutton();
  void marksopenring();
  void gapopensring();
  void typinggoestonavcell();
  void coveredcelltakesdigits();
  void arrows_data();
  void arrows();
  void arrowsfromclickedcell();
  void caretafterarrows_data();
  void caretafterarrows();
  void anykeymovesfocus();
  void altleavesthebox();
  void tableaves();
  void paste();
  void modifica();
  void mnuedit();
  void marksreadonly();
  void marksedited();
  void marksreleased_data();
  void marksreleased();
  void contextmenus();
  void painting();
  void paintinginwait();
  void palette_data();
  void palette();
  void fault();
  void underflow();
};

namespace {

QString cellname(const char* kind, int cell) {
  return QString("%1_%2").arg(kind).arg(cell);
}

/// The grey of a cell between its pencil marks.
QPoint gap(const User& user, int cell) {
  return user.place(cellname("Text2", cell)).topLeft() + QPoint(39, 39);
}

}  // namespace

void Editing::ringopens_data() {
  QTest::addColumn<QPoint>("offset");
  QTest::newRow("1") << QPoint(-2, -24);
  QTest::newRow("2") << QPoint(19, -24);
  QTest::newRow("3") << QPoint(40, -18);
  QTest::newRow("4") << QPoint(40, 3);
  QTest::newRow("5") << QPoint(40, 24);
  QTest::newRow("6") << QPoint(19, 36);
  QTest::newRow("7") << QPoint(-2, 36);
  QTest::newRow("8") << QPoint(-23, 24);
  QTest::newRow("9") << QPoint(-23, 3);
  QTest::newRow("0") << QPoint(-23, -18);
}
void Editing::ringopens() {
  User user;
  QFETCH(QPoint, offset);
  user.press("Text1_40");
  QCOMPARE(user.ring().size(), 10);
  const QString picture = QString("Picture1_") + QTest::currentDataTag();
  QCOMPARE(user.place(picture), QRect(QPoint(192, 233) + offset, QSize(22, 22)));
}

void Editing::ringenters() {
  User user;
  user.press("Text1_40");
  user.press("Picture1_7");
  QCOMPARE(user.text("Text1_40"), "7");
  QCOMPARE(user.text("txtesposti"), "1");
  QCOMPARE(user.text("txtvuoti"), "80");
  QCOMPARE(user.ring(), QStringList());
  user.press("Text1_40");
  user.press("Picture1_8");
  QCOMPARE(user.text("Text1_40"), "8");
  QCOMPARE(user.text("txtesposti"), "2");  // what the cell held before is ignored
}

void Editing::ringclears() {
  User user;
  user.open(easypuzzle);
  user.press("Text1_0");
  user.press("Picture1_0");
  QCOMPARE(user.text("Text1_0"), "");
  QCOMPARE(user.text("txtesposti"), "29");
  QVERIFY(user.shown("Text1_0"));  // it stays, although pencil marks are on
  user.press("Text1_0");
  user.press("Picture1_0");
  QCOMPARE(user.text("txtesposti"), "29");
}

void Editing::ringmoves() {
  User user;
  user.press("Text1_40");
  user.press("Text1_43");
  QCOMPARE(user.place("Picture1_1").topLeft(), QPoint(319 - 2, 233 - 24));
  QCOMPARE(user.ring().size(), 10);
}

void Editing::ringcloses_data() {
  QTest::addColumn<int>("cell");
  QTest::addColumn<bool>("open");
  QTest::newRow("eleven before") << 29 << true;
  QTest::newRow("eleven after") << 51 << true;
  QTest::newRow("twelve before") << 28 << false;
  QTest::newRow("twelve after") << 52 << false;
}
void Editing::ringcloses() {
  QFETCH(int, cell);
  QFETCH(bool, open);
  for (const bool marks : {false, true}) {
    User user;
    if (marks) user.choose("mnupencil");
    user.press(marks ? "candidate_405" : "Text1_40");
    user.moveto(gap(user, cell));
    QCOMPARE(!user.ring().isEmpty(), open);
  }
}

void Editing::ringovermarks() {
  User user;
  user.choose("mnupencil");
  user.press("candidate_405");
  user.moveto(user.place("candidate_5").center());
  QCOMPARE(user.ring().size(), 10);
}

void Editing::rightbutton() {
  User user;
  QTest::mouseClick(user.find("Picture2"), Qt::RightButton);
  QCOMPARE(user.find("picstart")->toolTip(), "start timer");
  QTest::mouseClick(user.find("candidate_405"), Qt::RightButton);
  QCOMPARE(user.ring(), QStringList());
}

void Editing::marksopenring() {
  User user;
  user.open(easypuzzle);
  user.press("candidate_21");
  QVERIFY(user.shown("Text1_2"));
  QVERIFY(user.focused("Text1_2"));
  QCOMPARE(user.ring().size(), 10);
  QCOMPARE(cellacliccata, 2);
}

void Editing::gapopensring() {
  User user;
  user.open(easypuzzle);
  user.pressat(gap(user, 2));
  QVERIFY(user.shown("Text1_2"));
  QVERIFY(user.focused("Text1_2"));
  QCOMPARE(user.ring().size(), 10);
}

void Editing::typinggoestonavcell() {
  User user;
  user.press("Text1_40");
  QVERIFY(user.focused("Text1_40"));
  user.type("6");
  QCOMPARE(user.text("Text1_40"), "");
  QCOMPARE(user.text("Text1_0"), "6");
  QVERIFY(user.focused("Text1_0"));
  user.key(Qt::Key_Right);
  user.type("7");
  QCOMPARE(user.text("Text1_1"), "7");
  QCOMPARE(user.text("txtesposti"), "2");
}

// A cell whose pencil marks are visible has the focus, shows it, and takes the digit; the mouse reaches the
// marks.
void Editing::coveredcelltakesdigits() {
  User user;
  user.open(easypuzzle);
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Right);
  QVERIFY(user.focused("Text1_2"));
  QVERIFY(!user.shown("Text1_2"));
  QVERIFY(user.find("Text1_2")->isVisible());
  QCOMPARE(user.find("main")->childAt(user.place("candidate_21").center())->objectName(), "candidate_21");
  user.type("4");
  QCOMPARE(user.text("Text1_2"), "4");
  QVERIFY(user.shown("Text1_2"));
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Down);
  QVERIFY(user.shown("Text1_2"));
  QVERIFY(!user.find("Text1_3")->isVisible());  // left with the focus, it is covered again
}

void Editing::arrows_data() {
  QTest::addColumn<int>("from");
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("to");
  QTest::newRow("left") << 40 << int(Qt::Key_Left) << 39;
  QTest::newRow("up") << 40 << int(Qt::Key_Up) << 31;
  QTest::newRow("right") << 40 << int(Qt::Key_Right) << 41;
  QTest::newRow("down") << 40 << int(Qt::Key_Down) << 49;
  QTest::newRow("left of the first") << 0 << int(Qt::Key_Left) << 80;
  QTest::newRow("up from the top") << 4 << int(Qt::Key_Up) << 76;
  QTest::newRow("right of the last") << 80 << int(Qt::Key_Right) << 0;
  QTest::newRow("down from the bottom") << 76 << int(Qt::Key_Down) << 4;
  QTest::newRow("right into the next row") << 8 << int(Qt::Key_Right) << 9;
  QTest::newRow("left into the row before") << 9 << int(Qt::Key_Left) << 8;
}
void Editing::arrows() {
  User user;
  QFETCH(int, from);
  QFETCH(int, key);
  QFETCH(int, to);
  user.press(cellname("Text1", from));
  user.key(key);
  QVERIFY(user.focused(cellname("Text1", to)));
}

void Editing::arrowsfromclickedcell() {
  User user;
  user.press("Text1_40");
  user.key(Qt::Key_Right);
  user.type("3");
  QCOMPARE(user.text("Text1_41"), "3");
}

void Editing::caretafterarrows_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("from");
  QTest::newRow("left") << int(Qt::Key_Left) << 41;
  QTest::newRow("right") << int(Qt::Key_Right) << 39;
  QTest::newRow("up") << int(Qt::Key_Up) << 49;
  QTest::newRow("down") << int(Qt::Key_Down) << 31;
}
// Wherever it stood when the cell was left, with Shift or without: the next Backspace deletes the digit.
void Editing::caretafterarrows() {
  QFETCH(int, key);
  QFETCH(int, from);
  for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
    for (const int leave : {int(Qt::Key_End), int(Qt::Key_Home)}) {
      User user;
      user.press("Text1_40");
      user.press("Picture1_7");
      navcell = 40;
      user.key(leave);
      user.press(cellname("Text1", from));
      navcell = from;  // Shift is a key too
      user.key(key, modifier);
      QVERIFY(user.focused("Text1_40"));
      QCOMPARE(user.get<QLineEdit>("Text1_40")->cursorPosition(), 1);
      QVERIFY(!user.get<QLineEdit>("Text1_40")->hasSelectedText());
      user.key(Qt::Key_Backspace);
      QCOMPARE(user.text("Text1_40"), "");
    }
  }
}

void Editing::anykeymovesfocus() {
  User user;
  user.open(easypuzzle);
  user.press("Text1_36");
  user.key(Qt::Key_Shift);
  QVERIFY(user.focused("Text1_0"));
  user.press("Text1_36");
  user.key(Qt::Key_Percent);  // its code is that of the left arrow on other systems
  QVERIFY(user.focused("Text1_0"));
}

// Alt with a letter opens a menu; it doesn't type.
void Editing::altleavesthebox() {
  User user;
  user.key(Qt::Key_Q, Qt::AltModifier);
  QCOMPARE(user.text("Text1_0"), "");
  user.key(Qt::Key_F, Qt::AltModifier);
  QWidget* menu = QApplication::activePopupWidget();
  QVERIFY(menu != nullptr);
  QTest::keyClick(menu, Qt::Key_Escape);
  QCOMPARE(user.text("Text1_0"), "");
}

// Tab leads from the board to the keys, and finally back to it.
void Editing::tableaves() {
  User user;
  user.press("Text1_40");
  user.key(Qt::Key_Tab);
  QVERIFY(!QApplication::focusWidget()->objectName().startsWith("Text1"));
  for (int n = 0; n < 60 && !user.focused("Text1_0"); ++n) user.key(Qt::Key_Tab);
  QVERIFY(user.focused("Text1_0"));
}

void Editing::paste() {
  User user;
  QGuiApplication::clipboard()->setText("9");
  user.key(Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(user.text("Text1_0"), "9");
  QCOMPARE(user.text("txtesposti"), "1");
}

void Editing::modifica() {
  User user;
  QCOMPARE(user.find("Toolbar1_modifica")->toolTip(), "edit pencil marks");
  user.press("Toolbar1_modifica");
  QVERIFY(user.get<QAbstractButton>("Toolbar1_modifica")->isChecked());
  QCOMPARE(user.find("Toolbar1_modifica")->toolTip(), "freeze pencil marks");
  user.press("Toolbar1_modifica");
  QVERIFY(!user.get<QAbstractButton>("Toolbar1_modifica")->isChecked());
  QCOMPARE(user.find("Toolbar1_modifica")->toolTip(), "edit pencil marks");
}

// The menu sets the opposite tool tips.
void Editing::mnuedit() {
  User user;
  user.choose("mnuedit");
  QVERIFY(user.get<QAbstractButton>("Toolbar1_modifica")->isChecked());
  QCOMPARE(user.find("Toolbar1_modifica")->toolTip(), "edit pencil marks");
  user.choose("mnuedit");
  QVERIFY(!user.get<QAbstractButton>("Toolbar1_modifica")->isChecked());
  QCOMPARE(user.find("Toolbar1_modifica")->toolTip(), "freeze pencil marks");
}

void Editing::marksreadonly() {
  User user;
  QVERIFY(user.get<QPlainTextEdit>("Text2_2")->isReadOnly());
  user.press("Toolbar1_modifica");
  QVERIFY(!user.get<QPlainTextEdit>("Text2_2")->isReadOnly());
  user.press("Toolbar1_modifica");
  QVERIFY(user.get<QPlainTextEdit>("Text2_2")->isReadOnly());
}

void Editing::marksedited() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_modifica");
  user.press("candidate_21");
  QCOMPARE(user.text("Text2_2"), "124");
  QVERIFY(user.focused("Text2_2"));
  QCOMPARE(user.ring(), QStringList());
  for (int digit = 1; digit <= 9; ++digit) QVERIFY(!user.shown(QString("candidate_2%1").arg(digit)));
  user.key(Qt::Key_End);
  user.type("9");
  user.key(Qt::Key_Home);
  user.key(Qt::Key_Delete);
  QCOMPARE(user.text("Text2_2"), "249");
  user.press("Toolbar1_modifica");
  QCOMPARE(user.text("Text2_2"), "");
  QVERIFY(user.shown("candidate_29") && user.shown("candidate_22") && !user.shown("candidate_21"));
}

void Editing::marksreleased_data() {
  QTest::addColumn<QString>("how");
  QTest::newRow("key") << "Toolbar1_modifica";
  QTest::newRow("menu") << "mnuedit";
}
// After editing pencil marks, keys go to the cell that the arrow keys reached last.
void Editing::marksreleased() {
  QFETCH(QString, how);
  const auto turn = [&how](User& user) { how.startsWith("mnu") ? user.choose(how) : user.press(how); };
  User user;
  user.open(easypuzzle);
  user.key(Qt::Key_Right);
  turn(user);
  user.press("candidate_21");
  user.type("9");
  QVERIFY(user.focused("Text2_2"));
  turn(user);
  QVERIFY(user.focused("Text1_1"));
  user.key(Qt::Key_Right);
  user.type("4");
  QCOMPARE(user.text("Text1_2"), "4");
}

// Context menus are in the language in force when they open.
void Editing::contextmenus() {
  User user;
  user.choose("mnuedit");
  const auto words = [](QMenu* menu) {
    QStringList all;
    for (const QAction* action : menu->actions())
      if (!action->isSeparator()) all << action->text().section('\t', 0, 0);
    delete menu;
    return all;
  };
  const QStringList inenglish = {"&Undo", "&Redo", "Cu&t", "&Copy", "&Paste", "Delete", "Select All"};
  const QStringList initalian = {"&Annulla", "&Ripeti", "&Taglia",        "&Copia",
                                 "&Incolla", "Elimina", "Seleziona tutto"};
  for (const QStringList& expected : {inenglish, initalian, inenglish}) {
    QCOMPARE(words(user.get<QLineEdit>("Text1_0")->createStandardContextMenu()), expected);
    QCOMPARE(words(user.get<QPlainTextEdit>("Text2_2")->createStandardContextMenu()), expected);
    user.press("cmdlan");
  }
}

void Editing::painting() {
  User user;
  user.press("colore_0");
  QVERIFY(user.menu("mnupencil")->isChecked());
  user.pressat(gap(user, 40));
  QCOMPARE(user.ground("Text2_40"), QColor(255, 255, 0));
  QCOMPARE(user.ring(), QStringList());
  user.press("colore_8");
  QCOMPARE(user.ground("Text2_40"), QColor(255, 255, 255));
  user.pressat(gap(user, 40));
  QCOMPARE(user.ground("Text2_40"), QColor(255, 255, 255));
  QCOMPARE(user.ring().size(), 10);
}

void Editing::paintinginwait() {
  User user;
  user.open(easypuzzle);
  user.press("colore_2");
  user.acts = {[&] {
    user.pressat(gap(user, 2));
    QCOMPARE(user.ground("Text2_2"), QColor(0, 255, 0));
    QCOMPARE(user.boxes, QStringList());
    user.press("Pictalt");
  }};
  user.press("Toolbar1_suggerisci");
  QCOMPARE(user.asked, 1);
}

void Editing::palette_data() {
  QTest::addColumn<QColor>("colour");
  QTest::newRow("0") << QColor(255, 255, 0);
  QTest::newRow("1") << QColor(255, 128, 0);
  QTest::newRow("2") << QColor(0, 255, 0);
  QTest::newRow("3") << QColor(0, 255, 255);
  QTest::newRow("5") << QColor(128, 128, 255);
  QTest::newRow("6") << QColor(255, 0, 255);
  QTest::newRow("7") << QColor(255, 0, 0);
}
void Editing::palette() {
  User user;
  QFETCH(QColor, colour);
  const QString button = QString("colore_") + QTest::currentDataTag();
  user.press(button);
  user.pressat(gap(user, 80));
  QCOMPARE(user.ground("Text2_80"), colour);
  const QPoint inside = user.place(button).topLeft() + QPoint(4, 4);
  QCOMPARE(user.find("main")->grab().toImage().pixelColor(inside), colour);
}

// Two digits in one cell are more than the tables hold: one message says so, and the program goes on.
void Editing::fault() {
  User user;
  user.type("12");
  QCOMPARE(user.boxes,
           QStringList{"12 in r1c1 is not a digit from 1 to 9: delete one of the two. (table bitvalue 0 "
                       "to 9, index 12, in rebuildusedmask)"});
  user.key(Qt::Key_Backspace);
  QCOMPARE(user.text("Text1_0"), "1");
  user.press("Text1_40");
  user.press("Picture1_5");
  QCOMPARE(user.text("Text1_40"), "5");
  QCOMPARE(user.boxes.size(), 1);
}

// Text that was no number is deleted: the count would fall below 0.
void Editing::underflow() {
  User user;
  user.type("a");
  QCOMPARE(user.boxes,
           QStringList{"What stands in r1c1 is not a digit from 1 to 9: delete it. (counter filledcount 0 "
                       "to 255, value -1, in text1changed)"});
  QCOMPARE(user.text("Text1_0"), "a");
}

WINDOW_TESTS(Editing)
#include "editing.moc"
