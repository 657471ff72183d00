// Screen reader and keyboard in the real window: names, announcements, the Tab order.
#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTextBlock>

#include "boxes.h"
#include "generator.h"
#include "grid.h"
#include "host.h"
#include "look.h"
#include "mainwindow.h"
#include "screenreader.h"
#include "user.h"
#include "view.h"

using namespace gradino;

class Access : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    readerlistens = [] { return true; };
  }
  void cleanup() { readerlistens = QAccessible::isActive; }

  void nobodylistens();
  void everythinghasaname_data();
  void everythinghasaname();
  void cellsfollowtheboard();
  void languageswitch();
  void marks();
  void announcements();
  void longjobs();
  void taborder();
  void tabreachesmarks();
  void focusframe_data();
  void focusframe();
  void textsofareader();
  void textsthatnobodytypes();
  void lightbykeyboard_data();
  void lightbykeyboard();
  void lightbymouse();
  void menuletters();
  void logbykeyboard();
  void generatorsdisplay();
};

namespace {

QString name(const User& user, const QString& widget) {
  return user.find(widget)->accessibleName();
}

QString accessible(QWidget* widget, QAccessible::Text what) {
  return QAccessible::queryAccessibleInterface(widget)->text(what);
}

QWidget* toplevel(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name) return widget;
  return nullptr;
}

template <class T>
bool is(const QWidget* widget) {
  return dynamic_cast<const T*>(widget) != nullptr;
}

/// All that somebody could want to know about: not what the toolkit makes its widgets of.
QList<QWidget*> things(QWidget* window) {
  QList<QWidget*> all;
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    const bool thing = is<QAbstractButton>(widget) || is<QLabel>(widget) || is<QLineEdit>(widget) ||
                       is<QPlainTextEdit>(widget);
    const QString own = widget->objectName();
    if (thing && !own.isEmpty() && !own.startsWith("qt_") && own != "candidate_0") all << widget;
  }
  return all;
}

}  // namespace

// Without a reader the names cost nothing: none is made.
void Access::nobodylistens() {
  readerlistens = [] { return false; };
  User user;
  user.open(easypuzzle);
  QCOMPARE(name(user, "Text1_0"), QString());
  QCOMPARE(name(user, "Toolbar1_suggerisci"), QString());
  readerlistens = [] { return true; };
  user.key(Qt::Key_Right);  // any event
  QCOMPARE(name(user, "Text1_0"), "cell r1c1, digit 5, given");
}

void Access::everythinghasaname_data() {
  QTest::addColumn<bool>("italian");
  QTest::newRow("english") << false;
  QTest::newRow("italian") << true;
}
void Access::everythinghasaname() {
  QFETCH(bool, italian);
  User user;
  user.open(easypuzzle);
  user.press("Toolbar2_libreria");
  QStringList before;
  if (italian) user.press("cmdlan");
  Frmlog::visible = frmactivity::visible = frmgeneratore::visible = true;
  user.key(Qt::Key_Right);  // any event
  for (const char* window : {"Frmlog", "frmactivity", "frmgeneratore", "frmlivello"}) {
    QVERIFY2(toplevel(window) != nullptr, window);
    QVERIFY2(!toplevel(window)->accessibleDescription().isEmpty(), window);
  }
  int seen = 0;
  for (QWidget* window : QApplication::topLevelWidgets())
    for (QWidget* widget : things(window)) {
      const QString own = widget->objectName();
      const bool label = own.startsWith("Label") || own.startsWith("label");  // of the library: text is name
      if (window->objectName() == "frmlivello" && label) continue;
      QVERIFY2(!accessible(widget, QAccessible::Name).isEmpty(), qPrintable(own));
      QVERIFY2(!accessible(widget, QAccessible::Description).isEmpty(), qPrintable(own));
      ++seen;
    }
  QVERIFY2(seen > 81 * 11 + 80, qPrintable(QString::number(seen)));
}

void Access::cellsfollowtheboard() {
  User user;
  QCOMPARE(name(user, "Text1_0"), "cell r1c1, empty");
  user.type("7");
  QCOMPARE(name(user, "Text1_0"), "cell r1c1, digit 7, given");  // red, as the eye has it
  user.open(easypuzzle);
  QCOMPARE(name(user, "Text1_2"), "cell r1c3, empty, candidates 1 2 4");
  QCOMPARE(name(user, "Text2_2"), "cell r1c3, empty, candidates 1 2 4");
  QCOMPARE(name(user, "Text2_0"), "pencil marks of cell r1c1, covered");
  user.acts = {[&] {
    QCOMPARE(name(user, "Text1_5"), "cell r1c6, empty, candidates 2 4 6 8; 8 in green");
    user.press("Pictgo");
  }};
  user.press("Toolbar1_suggerisci");
  QCOMPARE(name(user, "Text1_5"), "cell r1c6, digit 8");
  QCOMPARE(user.find("Text1_5")->accessibleDescription(), "block 2");
  user.press("Toolbar1_pencil");
  QCOMPARE(name(user, "Text1_2"), "cell r1c3, empty");
}

void Access::languageswitch() {
  User user;
  user.open(easypuzzle);
  frmactivity::visible = true;
  user.press("cmdlan");
  QCOMPARE(name(user, "Text1_0"), "casella r1c1, cifra 5, data");
  QCOMPARE(name(user, "Text1_2"), "casella r1c3, vuota, candidati 1 2 4");
  QCOMPARE(name(user, "Pictgo"), "procedi");
  QCOMPARE(name(user, "txthint"), "passo");
  QCOMPARE(name(user, "cmdlan"), "passa all'inglese");
  QCOMPARE(toplevel("frmactivity")->findChild<QWidget*>("Text3")->accessibleName(), "spiegazione");
  user.press("cmdlan");
  QCOMPARE(name(user, "Text1_0"), "cell r1c1, digit 5, given");
}

void Access::marks() {
  User user;
  user.open(easypuzzle);
  QCOMPARE(accessible(user.find("candidate_24"), QAccessible::Name), "candidate 4 in r1c3");
  QCOMPARE(accessible(user.find("candidate_25"), QAccessible::Name), "hidden candidate in r1c3");
  QCOMPARE(accessible(user.find("candidate_24"), QAccessible::Description),
           "opens the ring of digits for cell r1c3");
  auto* actions = QAccessible::queryAccessibleInterface(user.find("candidate_24"))->actionInterface();
  actions->doAction(QAccessibleActionInterface::pressAction());
  QCOMPARE(user.ring().size(), 10);
  QCOMPARE(name(user, "Picture1_7"), "digit 7");
  QCOMPARE(user.find("Picture1_7")->accessibleDescription(), "writes the digit into cell r1c3");
}

// The sentence of a step when it appears; of an explanation the new part.
void Access::announcements() {
  User user;
  user.open(easypuzzle);
  const auto said = [&] { return user.window().findChild<QWidget*>("announcer")->accessibleName(); };
  QCOMPARE(QAccessible::queryAccessibleInterface(user.window().findChild<QWidget*>("announcer"))->role(),
           QAccessible::Notification);
  user.acts = {[&] {
                 QCOMPARE(said(), "hidden single in block 2, in r1c6");
                 user.press("Picthelp");
               },
               [&] {
                 QVERIFY2(said().contains("CROSS-HATCHING") && said().contains("is the yellow cell r1c6"),
                          qPrintable(said()));
                 user.window().findChild<QWidget*>("announcer")->setAccessibleName("");
                 user.press("Pictalt");
               },
               [&] {
                 QCOMPARE(said(), "hidden single in block 2, in r1c6");  // the same step once more
                 user.press("Pictalt");
               }};
  user.press("Toolbar1_suggerisci");
  QCOMPARE(said(), "");
  user.press("Toolbar1_suggerisci");
  QCOMPARE(user.asked, 3);
}

// The intermediate boards of a long job are not announced; the final one is.
void Access::longjobs() {
  User user;
  {
    const Hush hush;
    user.type("7");
    QCOMPARE(user.text("Text1_0"), "7");
    QCOMPARE(name(user, "Text1_0"), "cell r1c1, empty");
  }
  user.key(Qt::Key_Right);
  QCOMPARE(name(user, "Text1_0"), "cell r1c1, digit 7, given");
  user.choose("mnuadvanced");
  int given = 0;
  for (int cell = 0; cell < 81; ++cell)
    given += name(user, QString("Text1_%1").arg(cell)).endsWith(", given") ? 1 : 0;
  QVERIFY(given > 16);
}

void Access::taborder() {
  User user;
  user.open(easypuzzle);
  const QStringList texts = {"txthint",    "filetxt",  "txtlivello", "testototale",   "txtlivello1",
                             "txtesposti", "txtvuoti", "tempotot",   "txtprogressivo"};
  const QStringList upper = {"open",    "new",   "libreria", "save",  "print",
                             "risolvi", "conta", "undo",     "genera"};
  const QStringList lower = {"pencil",    "refresh", "modifica",    "activity", "obbligate",
                             "nakedpair", "hidden",  "nakedtriple", "xywing",   "xwing",
                             "sword",     "colori",  "chain",       "numero",   "suggerisci"};
  QStringList expected;
  for (const QString& key : upper) expected << "Toolbar2_" + key;
  expected << "cmdlan";
  for (const QString& key : lower) expected << "Toolbar1_" + key;
  expected << "cmdimpossibili";
  const QStringList light = {"Pictgo", "Pictalt", "Picthelp"};
  for (const int n : {3, 2, 0, 1, 5, 6, 7, 4, 8}) expected << QString("colore_%1").arg(n);
  expected << "picstart"
           << "Picture2";
  expected << texts << "Text1_2";
  const auto walk = [&](int key, Qt::KeyboardModifiers modifiers, qsizetype stops) {
    QStringList way;
    for (qsizetype n = 0; n < stops; ++n) {
      user.key(key, modifiers);
      way << user.window().focusWidget()->objectName();
    }
    return way;
  };
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Right);
  QVERIFY(user.focused("Text1_2"));
  QCOMPARE(walk(Qt::Key_Tab, Qt::NoModifier, expected.size()), expected);
  QStringList back(expected.rbegin() + 1, expected.rend());
  back << "Text1_2";
  QCOMPARE(walk(Qt::Key_Backtab, Qt::ShiftModifier, back.size()), back);
  user.acts = {[&] {
    user.find("cmdimpossibili")->setFocus();
    QCOMPARE(walk(Qt::Key_Tab, Qt::NoModifier, 3), light);
    user.find("Pictalt")->setFocus();
    user.key(Qt::Key_Space);
  }};
  user.choose("mnuposition");
  QCOMPARE(user.asked, 1);
}

// While pencil marks are edited they are the second stop of the board; the Tab key opens them.
void Access::tabreachesmarks() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_modifica");
  user.find("Text1_0")->setFocus();
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Tab);
  QCOMPARE(user.window().focusWidget()->objectName(), "Text2_2");
  QCOMPARE(user.text("Text2_2"), "124");
  user.key(Qt::Key_End);
  user.type("9");
  QCOMPARE(name(user, "Text1_2"), "cell r1c3, empty, candidates under edit 1249");
  user.key(Qt::Key_Tab);
  QVERIFY(user.focused("Toolbar2_open"));
  user.key(Qt::Key_Backtab, Qt::ShiftModifier);
  user.key(Qt::Key_Backtab, Qt::ShiftModifier);
  QVERIFY(user.focused("Text1_2"));
  user.key(Qt::Key_Left);  // r1c2 holds a digit, which covers its marks
  user.key(Qt::Key_Tab);
  QVERIFY(user.focused("Toolbar2_open"));
}

void Access::focusframe_data() {
  QTest::addColumn<QString>("thing");
  for (const char* thing : {"Text1_2", "Text1_0", "Toolbar2_open", "Toolbar2_save", "Toolbar1_chain",
                            "cmdlan", "picstart", "colore_6", "txthint", "filetxt", "txtesposti", "Text2_2"})
    QTest::newRow(thing) << thing;
}
// On the screen, not in a grabbed picture, for which everything would be painted anew.
void Access::focusframe() {
  QFETCH(QString, thing);
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_modifica");
  user.key(Qt::Key_Right);
  user.key(Qt::Key_Right);
  // The fraction of the upper and lower edge that has the colour of the frame.
  const auto framed = [&] {
    const QRect place(user.find(thing)->mapTo(&user.window(), QPoint()), user.find(thing)->size());
    const QImage seen = user.window()
                            .screen()
                            ->grabWindow(user.window().winId())
                            .toImage()
                            .copy(place)
                            .convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int x = 0; x < seen.width(); ++x)
      for (const int y : {0, seen.height() - 1}) count += seen.pixelColor(x, y) == darkblue ? 1 : 0;
    return count >= seen.width() ? 1 : 0;  // of twice as much
  };
  for (const bool frame : {true, false, true, false}) {
    user.find(frame ? thing : "Toolbar1_hidden")->setFocus();
    QTRY_COMPARE(framed(), frame ? 1 : 0);
  }
}

namespace {

/// What a screen reader has of a text box.
QAccessibleEditableTextInterface* pen(const User& user, const QString& box) {
  return QAccessible::queryAccessibleInterface(user.find(box))->editableTextInterface();
}

}  // namespace

// Text set by a reader is treated like typed text.
void Access::textsofareader() {
  User user;
  user.open(easypuzzle);
  QVERIFY(user.shown("candidate_54"));
  pen(user, "Text1_2")->insertText(0, "4");
  QCOMPARE(user.text("Text1_2"), "4");
  QCOMPARE(cellvalue(2), 4);
  QCOMPARE(user.text("txtesposti"), "31");
  QVERIFY(!user.shown("candidate_54"));  // r1c6 sees it
  pen(user, "Text1_2")->replaceText(0, 1, "1");
  QCOMPARE(cellvalue(2), 1);
  pen(user, "Text1_2")->deleteText(0, 1);
  QCOMPARE(cellvalue(2), 0);
  QCOMPARE(user.text("Text1_2"), "");
  QAccessible::queryAccessibleInterface(user.find("Text1_2"))->setText(QAccessible::Value, "4");
  QCOMPARE(cellvalue(2), 4);
  QCOMPARE(user.boxes, QStringList());

  user.press("Toolbar1_modifica");
  user.press("candidate_32");
  QCOMPARE(user.text("Text2_3"), "26");
  pen(user, "Text2_3")->insertText(2, "9");
  QCOMPARE(candstr(3), std::string("269"));
  pen(user, "Text2_3")->replaceText(0, 3, "48");
  QCOMPARE(user.text("Text2_3"), "48");
  QCOMPARE(candstr(3), std::string("48"));
}

// A reader can't change a read-only box.
void Access::textsthatnobodytypes() {
  User user;
  user.open(easypuzzle);
  const std::string marks = candstr(2);
  const QString level = user.text("txtlivello");
  for (const char* box : {"Text2_2", "txtlivello", "txtesposti"}) {
    const QString before = user.text(box);
    pen(user, box)->insertText(0, "9");
    QCOMPARE(user.text(box), before);
    pen(user, box)->replaceText(0, static_cast<int>(before.size()), "123");
    QCOMPARE(user.text(box), before);
  }
  QCOMPARE(candstr(2), marks);
  QVERIFY(level.startsWith("VERY EASY"));
}

void Access::lightbykeyboard_data() {
  QTest::addColumn<bool>("menu");
  QTest::addColumn<QString>("answer");
  for (const char* answer : {"Pictgo", "Pictalt"}) {
    QTest::newRow(qPrintable(QString("menu, ") + answer)) << true << answer;
    QTest::newRow(qPrintable(QString("toolbar, ") + answer)) << false << answer;
  }
}
// A hint requested by keyboard is answered by keyboard, and the focus returns to where it was.
void Access::lightbykeyboard() {
  QFETCH(bool, menu);
  QFETCH(QString, answer);
  User user;
  user.open(easypuzzle);
  user.key(Qt::Key_Right);
  if (!menu) user.find("Toolbar1_suggerisci")->setFocus();
  const QString before = user.window().focusWidget()->objectName();
  user.acts = {[&] {
    QCOMPARE(user.window().focusWidget()->objectName(), "Pictgo");
    if (answer == "Pictalt") user.key(Qt::Key_Tab);
    QCOMPARE(user.window().focusWidget()->objectName(), answer);
    user.key(Qt::Key_Space);
  }};
  if (menu) {
    user.key(Qt::Key_H, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  } else {
    user.key(Qt::Key_Space);
  }
  QCOMPARE(user.asked, 1);
  QCOMPARE(user.text("Text1_5"), answer == "Pictgo" ? "8" : "");
  QCOMPARE(user.window().focusWidget()->objectName(), before);
}

// With the mouse, the board keeps the keyboard while the light waits.
void Access::lightbymouse() {
  User user;
  user.open(easypuzzle);
  user.key(Qt::Key_Right);
  user.acts = {[&] {
    QVERIFY(user.focused("Text1_1"));
    user.press("Pictalt");
  }};
  user.press("Toolbar1_suggerisci");
  QCOMPARE(user.asked, 1);
  QVERIFY(user.focused("Text1_1"));
}

// Alt and the letter open the menu; all letters differ, in both languages.
void Access::menuletters() {
  User user;
  for (const QString& expected : {QString("fvhtog"), QString("fvstrg")}) {
    QString letters;
    for (const QAction* title : user.window().menuBar()->actions())
      letters += title->text().at(title->text().indexOf('&') + 1).toLower();
    QCOMPARE(letters, expected);
    for (const QChar letter : letters) {
      user.key(letter.toUpper().unicode(), Qt::AltModifier);
      QVERIFY(QApplication::activePopupWidget() != nullptr);
      const auto* open = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
      QCOMPARE(open->menuAction()->text().toLower().contains(QString("&") + letter), true);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::keyClick(user.window().menuBar(), Qt::Key_Escape);
    }
    user.press("cmdlan");
  }
}

void Access::logbykeyboard() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_activity");
  auto* log = toplevel("Frmlog")->findChild<QPlainTextEdit*>("Text3");
  QVERIFY(log->isReadOnly());
  log->setFocus();
  QCOMPARE(log->textCursor().blockNumber(), 0);  // empty, and not clicked yet
  QTest::keyClick(log, Qt::Key_Return);
  QCOMPARE(user.boxes, QStringList{"no board was kept for this line: there is nothing to go back to"});
  QCOMPARE(user.asked, 0);
  QCOMPARE(user.text("txtesposti"), "30");
  for (int cell = 0; cell < 81; ++cell)
    QCOMPARE(user.text(QString("Text1_%1").arg(cell)), QString(easypuzzle).mid(cell, 1).remove('.'));
  QTest::keyClick(log, Qt::Key_Down);
  QTest::keyClick(log, Qt::Key_Down);
  QCOMPARE(log->textCursor().blockNumber(), 2);
  user.acts = {[&] { user.press("Pictalt"); }};
  QTest::keyClick(log, Qt::Key_Return);
  QCOMPARE(user.asked, 1);
  QCOMPARE(user.text("txtesposti"), "31");  // the board just before the second step
}

// A command that clears the board in the middle of a generation: the pencil marks are restored, unless the
// command has set them itself.
void Access::generatorsdisplay() {
  struct Row {
    const char* command;
    bool before, after;
  };
  for (const auto& [command, before, after] :
       {Row{"mnuadvanced", true, true}, Row{"mnuadvanced", false, false}, Row{"Toolbar2_genera", false, true},
        Row{"mnunew", false, false}, Row{"Toolbar2_new", true, true}}) {
    User user;
    if (before) user.choose("mnupencil");
    bool first = true;
    host.runevents = [&, run = host.runevents] {
      if (!std::exchange(first, false)) return run();
      const QString what = command;
      what.startsWith("mnu") ? user.choose(what) : user.press(what);
      run();
    };
    user.choose("mnuadvanced");
    QVERIFY2(user.menu("mnupencil")->isChecked() == after, command);
  }
}

WINDOW_TESTS(Access)
#include "access.moc"
