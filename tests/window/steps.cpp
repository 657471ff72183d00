// A hint from the request to the digit: wait, paint, explanation, light; and back to a step from the log.
#include <QPlainTextEdit>
#include <QTextBlock>
#include <algorithm>
#include <cmath>
#include <utility>

#include "boxes.h"
#include "light.h"
#include "mainwindow.h"
#include "user.h"
#include "words.h"

using namespace gradino;

class Steps : public QObject {
  Q_OBJECT

 private slots:
  void nopuzzle();
  void hintandgo();
  void hintandstop();
  void explained();
  void explanationstopped();
  void explanationbeside();
  void locked_data();
  void locked();
  void notlocked();
  void painteddigit();
  void digitsonallpaints();
  void languageinwait();
  void logshown();
  void logclosed();
  void replay();
  void logrefuses();
  void accents();
};

namespace {

constexpr const char* hintkey = "Toolbar1_suggerisci";
const QString lightmessage = "to proceed, click on green traffic light";

QWidget* toplevel(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name) return widget;
  return nullptr;
}

/// A window that was never shown isn't there at all.
bool visible(const QString& name) {
  return toplevel(name) != nullptr && toplevel(name)->isVisible();
}

QPlainTextEdit* textof(const QString& name) {
  return toplevel(name)->findChild<QPlainTextEdit*>("Text3");
}

/// A double click on a line of the log.
void doubleclickline(int line) {
  QPlainTextEdit* text = textof("Frmlog");
  QTextCursor cursor(text->document()->findBlockByNumber(line));
  cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 5);
  text->setTextCursor(cursor);
  text->ensureCursorVisible();  // a click needs a visible line
  const QPoint place = text->cursorRect(cursor).center();
  QTest::mouseClick(text->viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(text->viewport(), Qt::LeftButton, {}, place);
}

/// The first line that begins with this text, or none.
int linethatbegins(const QString& begin) {
  const QStringList lines = textof("Frmlog")->toPlainText().split('\n');
  for (int n = 0; n < lines.size(); ++n)
    if (lines[n].startsWith(begin)) return n;
  return -1;
}

}  // namespace

void Steps::nopuzzle() {
  User user;
  user.press(hintkey);
  QCOMPARE(user.boxes, QStringList{"no puzzle loaded"});
  QCOMPARE(user.asked, 0);
}

void Steps::hintandgo() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] {
    for (const char* picture : {"Pictgo", "Pictalt", "Picthelp"}) QVERIFY(user.shown(picture));
    QCOMPARE(user.text("txthint"), "hidden single in block 2, in r1c6");
    QCOMPARE(user.text("Text5"), "8");
    QCOMPARE(user.ground("candidate_58"), QColor(0, 255, 0));
    QCOMPARE(user.ground("Text1_5"), QColor(255, 255, 0));
    QCOMPARE(user.text("Text1_5"), "");
    user.press("Pictgo");
  }};
  user.press(hintkey);
  QCOMPARE(user.asked, 1);
  QCOMPARE(user.text("Text1_5"), "8");
  QVERIFY(user.shown("Text1_5"));
  QCOMPARE(user.ground("Text1_5"), QColor(255, 255, 255));
  QCOMPARE(user.find("Text1_5")->palette().color(QPalette::Text), QColor(0, 0, 0));
  QCOMPARE(user.text("txtesposti"), "31");
  for (const char* picture : {"Pictgo", "Pictalt", "Picthelp"}) QVERIFY(!user.shown(picture));
}

void Steps::hintandstop() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.press("Pictalt"); }};
  user.choose("mnuposition");
  QCOMPARE(user.text("Text1_5"), "");
  QCOMPARE(user.text("txtesposti"), "30");
  QCOMPARE(user.ground("candidate_58"), QColor(0, 255, 0));  // the colours stay
  QVERIFY(!user.shown("Pictgo"));
}

// The explanation waits inside the step's wait; its green light also carries out the step.
void Steps::explained() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.press("Picthelp"); },
               [&] {
                 QVERIFY(visible("frmactivity"));
                 QCOMPARE(toplevel("frmactivity")->windowTitle(),
                          "Explanations - Clik on green traffic lights to proceed");
                 const QStringList lines = textof("frmactivity")->toPlainText().split('\n');
                 QCOMPARE(lines.value(0), " HIDDEN SINGLE in the block");
                 QCOMPARE(lines.last(), "is the yellow cell r1c6");
                 QCOMPARE(user.ground("Text1_20"), QColor(0, 255, 0));
                 QCOMPARE(user.ground("Text1_18"), QColor(255, 0, 0));
                 QVERIFY(!user.menu("mnupencil")->isChecked());
                 QVERIFY(user.shown("Pictgo"));
                 user.press("Pictgo");
               }};
  user.press(hintkey);
  QCOMPARE(user.asked, 2);
  QVERIFY(!visible("frmactivity"));
  QCOMPARE(user.text("Text1_5"), "8");
  QCOMPARE(user.ground("Text1_20"), QColor(255, 255, 255));
}

void Steps::explanationstopped() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.press("Picthelp"); }, [&] { user.press("Pictalt"); }};
  user.press(hintkey);
  QCOMPARE(user.text("Text1_5"), "");
  QVERIFY(visible("frmactivity"));
  QCOMPARE(user.ground("Text1_20"), QColor(0, 255, 0));
  toplevel("frmactivity")->close();
  QVERIFY(!frmactivity::visible);
}

void Steps::explanationbeside() {
  User user;
  user.open(easypuzzle);
  user.window().move(10, 20);
  user.acts = {[&] { user.press("Picthelp"); },
               [&] {
                 QCOMPARE(frmactivity::left, user.window().frameGeometry().right() + 1);
                 QCOMPARE(frmactivity::top, user.window().frameGeometry().top());
                 QVERIFY(user.window().screen()->availableGeometry().contains(
                     toplevel("frmactivity")->frameGeometry()));
                 QVERIFY(user.window().isActiveWindow());  // the board keeps the keyboard
                 user.press("Pictalt");
               }};
  user.press(hintkey);
  QCOMPARE(user.asked, 2);
}

void Steps::locked_data() {
  QTest::addColumn<QString>("name");
  for (const char* name :
       {"Text1_0", "Toolbar1_refresh", "Toolbar1_modifica", "Toolbar1_activity", hintkey, "Toolbar2_open",
        "Toolbar2_new", "Toolbar2_save", "Toolbar2_risolvi", "Toolbar2_conta", "Toolbar2_undo"})
    QTest::newRow(name) << name;
  QTest::newRow("Text2 between the marks") << "";
}
void Steps::locked() {
  User user;
  user.open(easypuzzle);
  QFETCH(QString, name);
  user.acts = {[&] {
    if (name.isEmpty()) {
      user.pressat(user.place("Text2_2").topLeft() + QPoint(39, 39));
    } else {
      user.press(name);
    }
    QCOMPARE(user.boxes, QStringList{lightmessage});
    QCOMPARE(user.ring(), QStringList());
    QVERIFY(user.shown("Pictgo"));
    user.press("Pictalt");
  }};
  user.press(hintkey);
  QCOMPARE(user.asked, 1);
  QCOMPARE(user.text("Text1_0"), "5");
}

// Pencil marks, the ring and the two keys that only change the view work during a wait.
void Steps::notlocked() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] {
    user.press("candidate_21");
    QCOMPARE(user.ring().size(), 10);
    user.press("Picture1_4");
    QCOMPARE(user.text("Text1_2"), "4");
    user.press("Toolbar1_numero");
    QVERIFY(user.shown("Text5") && user.shown("Label3"));
    user.press("Toolbar1_pencil");
    QVERIFY(user.shown("Text1_3"));
    QCOMPARE(user.boxes, QStringList());
    user.press("Pictalt");
  }};
  user.press(hintkey);
  QCOMPARE(user.asked, 1);
}

// On red, a red digit would be invisible: it is shown in a darker red.
void Steps::painteddigit() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.press("Picthelp"); },
               [&] {
                 QCOMPARE(user.ground("Text1_4"), QColor(255, 0, 0));
                 QVERIFY(user.find("Text1_4")->palette().color(QPalette::Text) != QColor(255, 0, 0));
                 user.press("Pictgo");
               }};
  user.press(hintkey);
  QCOMPARE(user.find("Text1_4")->palette().color(QPalette::Text), QColor(255, 0, 0));
}

/// The contrast ratio of two colours, from 1 to 21, as the accessibility guidelines of the web define it.
double ratio(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& colour) {
    double sum = 0;
    for (const auto& [part, weight] :
         {std::pair(colour.redF(), 0.2126), {colour.greenF(), 0.7152}, {colour.blueF(), 0.0722}})
      sum += weight * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    return sum;
  };
  return (std::max(light(a), light(b)) + 0.05) / (std::min(light(a), light(b)) + 0.05);
}

// Text of the size of a digit needs a contrast of 3; red on red has 3.3, and green no less.
void Steps::digitsonallpaints() {
  User user;
  const auto shownas = [&](const QString& name) { return user.find(name)->palette().color(QPalette::Text); };
  const Colour paints[] = {white, yellow, red, green, cyan, magenta, lightblue, orange};
  for (int cell = 0; cell < 16; ++cell)
    frmmain::Text1(cell) = {.text = "5", .back = paints[cell % 8], .fore = cell < 8 ? red : textcolor};
  user.moveto(QPoint(2, 2));
  user.press("cmdlan");
  for (int cell = 0; cell < 16; ++cell) {
    const QString name = QString("Text1_%1").arg(cell);
    const QColor text = shownas(name);
    const double figure = ratio(text, user.ground(name));
    QVERIFY2(figure >= 3, qPrintable(QString("%1: %2").arg(name).arg(figure)));
    if (cell < 8) QVERIFY2(text.red() > 0 && text.green() == 0 && text.blue() == 0, "a given is red");
    if (cell >= 8) QCOMPARE(text, QColor(0, 0, 0));
  }
  QCOMPARE(shownas("Text1_0"), QColor(255, 0, 0));
  QCOMPARE(shownas("Text1_3"), shownas("Text1_2"));  // on green as on red
  QVERIFY(ratio(shownas("Text1_2"), user.ground("Text1_2")) > 3.3);
}

void Steps::languageinwait() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] {
    user.press("cmdlan");
    QCOMPARE(user.text("txthint"), "hidden single in block 2, in r1c6");
    QCOMPARE(user.find("Pictgo")->toolTip(), "procedi");
    user.press("Text1_0");
    QCOMPARE(user.boxes, QStringList{"per procedere, cliccare sul semaforo verde"});
    user.press("Pictgo");
  }};
  user.press(hintkey);
  QCOMPARE(user.text("Text1_5"), "8");
}

void Steps::logshown() {
  User user;
  user.open(easypuzzle);
  QVERIFY(!visible("Frmlog"));
  user.press("Toolbar1_activity");
  QVERIFY(visible("Frmlog"));
  QVERIFY(user.menu("mnuactivity")->isChecked());
  QCOMPARE(toplevel("Frmlog")->windowTitle(), "Log - DOUBLE CLICK on one line to explain the technique ");
  QVERIFY(textof("Frmlog")->isReadOnly());
  const QStringList lines = textof("Frmlog")->toPlainText().split('\n');
  QCOMPARE(lines.value(0), "");
  QVERIFY(lines.size() > 51);
  user.choose("mnuactivity");
  QVERIFY(!visible("Frmlog"));
  QVERIFY(!user.menu("mnuactivity")->isChecked());
}

// Closing the window itself also hides it.
void Steps::logclosed() {
  User user;
  user.open(easypuzzle);
  user.choose("mnuactivity");
  toplevel("Frmlog")->close();
  QVERIFY(!visible("Frmlog"));
  QVERIFY(!user.menu("mnuactivity")->isChecked());
  user.choose("mnuactivity");
  QVERIFY(visible("Frmlog"));
}

void Steps::replay() {
  User user;
  user.open(easypuzzle);
  user.choose("mnusolve");
  user.choose("mnuactivity");
  user.acts = {[&] {
    QCOMPARE(user.text("txtesposti"), "36");  // 30 givens and the six steps before the seventh line
    user.press("Pictalt");
  }};
  doubleclickline(7);
  QCOMPARE(user.asked, 1);
}

void Steps::logrefuses() {
  User user;
  user.open(easypuzzle);
  user.choose("mnuactivity");
  user.acts = {[&] {
    doubleclickline(1);
    QCOMPARE(user.boxes, QStringList{lightmessage});
    user.press("Pictalt");
  }};
  user.press(hintkey);
  QCOMPARE(user.asked, 1);

  Frmlog::Text3.text = "\r\nheadline\r\n * deleted 5 from r1c1";
  user.press("Toolbar1_pencil");
  const int detail = linethatbegins(" * ");
  QCOMPARE(detail, 2);
  doubleclickline(detail);
  QCOMPARE(user.boxes.value(1), "select a line without initial asterisk");
}

// The position in the text of the log counts bytes, with accented letters before it and two characters at
// each line end.
void Steps::accents() {
  User user;
  user.open(easypuzzle);
  user.choose("mnuactivity");
  for (int line = 0; line < 20; ++line) Frmlog::Text3.text += "\r\nperchè già";
  Frmlog::Text3.text += "\r\n * deleted 5 from r1c1\r\nheadline";
  user.press("Toolbar1_pencil");
  doubleclickline(linethatbegins(" * "));
  QCOMPARE(user.boxes, QStringList{"select a line without initial asterisk"});
}

WINDOW_TESTS(Steps)
#include "steps.moc"
