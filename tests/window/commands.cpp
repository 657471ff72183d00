// Language, clock, and the commands of menu and toolbars that need nothing but the board.
#include <QAbstractButton>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>

#include "boxes.h"
#include "clock.h"
#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Commands : public QObject {
  Q_OBJECT

 private slots:
  void language_data();
  void language();
  void twoswitchesarenone();
  void menutitles();
  void tickedentries();
  void undo();
  void conta();
  void risolvi();
  void refresh();
  void newblank();
  void numero();
  void pencilbehindtoolbar2();
  void clockruns();
  void clockresets();
  void messagebox();
  void hiddentools();
};

namespace {

/// Every caption and tool tip of the window, with the name of what carries it.
QStringList words(User& user) {
  QStringList all;
  for (const QWidget* widget : user.find("main")->findChildren<QWidget*>())
    if (!widget->toolTip().isEmpty()) all << widget->objectName() + ": " + widget->toolTip();
  for (const char* label : {"lblfile", "Label1", "Label2", "Label3", "Label5"})
    all << QString(label) + ": " + user.text(label);
  for (const QAction* action : user.window().findChildren<QAction*>())
    all << action->objectName() + ": " + action->text();
  return all;
}

}  // namespace

void Commands::language_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("english");
  QTest::addColumn<QString>("italian");
  // clang-format off
  QTest::newRow("open")        << "Toolbar2_open"        << "open"                 << "apri";
  QTest::newRow("new")         << "Toolbar2_new"         << "new"                  << "nuovo";
  QTest::newRow("save")        << "Toolbar2_save"        << "save"                 << "salva";
  QTest::newRow("risolvi")     << "Toolbar2_risolvi"     << "solution"             << "risolvi";
  QTest::newRow("conta")       << "Toolbar2_conta"       << "count solutions"      << "conta soluzioni";
  QTest::newRow("undo")        << "Toolbar2_undo"        << "from scratch"         << "rigenera schema";
  QTest::newRow("pencil")      << "Toolbar1_pencil"      << "pencil marks"         << "candidati";
  QTest::newRow("refresh")     << "Toolbar1_refresh"     << "refresh pencil marks" << "rigenera candidati";
  QTest::newRow("modifica")    << "Toolbar1_modifica"    << "edit pencil marks"    << "edit pencil marks";
  QTest::newRow("activity")    << "Toolbar1_activity"    << "activity log"         << "log attività";
  QTest::newRow("numero")      << "Toolbar1_numero"      << "show hint number"     << "mostra suggerimento";
  QTest::newRow("suggerisci")  << "Toolbar1_suggerisci"  << "hint"                 << "suggerisci";
  QTest::newRow("cmdlan")      << "cmdlan"               << "italiano"             << "english";
  QTest::newRow("Pictgo")      << "Pictgo"               << "go"                   << "procedi";
  QTest::newRow("Pictalt")     << "Pictalt"              << "stop"                 << "stop";
  QTest::newRow("Picthelp")    << "Picthelp"             << "explain"              << "spiega";
  QTest::newRow("picstart")    << "picstart"             << "start timer"          << "start timer";
  QTest::newRow("lblfile")     << "lblfile"              << "filled"               << "esposti";
  QTest::newRow("Label1")      << "Label1"               << "empty"                << "vuoti";
  QTest::newRow("Label2")      << "Label2"               << "timer"                << "timer";
  QTest::newRow("Label3")      << "Label3"               << "number"               << "numero";
  QTest::newRow("Label5")      << "Label5"               << "grid id"              << "schema";
  QTest::newRow("mnuopen")     << "mnuopen"              << "Open"                 << "Apri";
  QTest::newRow("mnusave")     << "mnusave"              << "Save"                 << "Salva";
  QTest::newRow("mnunew")      << "mnunew"               << "New blank"            << "Nuovo";
  QTest::newRow("mnupencil")   << "mnupencil"            << "Show pencil marks"    << "Mostra candidati";
  QTest::newRow("mnurefresh")  << "mnurefresh"           << "Refresh pencil marks" << "Rigenera candidati";
  QTest::newRow("mnuedit")     << "mnuedit"              << "Edit pencil marks"    << "Modifica candidati";
  QTest::newRow("mnuactivity") << "mnuactivity"          << "Show activity"        << "Mostra attivita'";
  QTest::newRow("mnuposition") << "mnuposition"          << "Suggest position"     << "suggerisci posizione";
  QTest::newRow("mnunumber")   << "mnunumber"            << "Suggest number"       << "suggerisci numero";
  QTest::newRow("mnusolve")    << "mnusolve"             << "Solve"                << "Risolvi";
  // clang-format on
}
void Commands::language() {
  User user;
  QFETCH(QString, name);
  const auto said = [&] {
    if (name.startsWith("mnu")) return user.menu(name)->text();
    return name.contains(QRegularExpression("^(lbl|Label)")) ? user.text(name) : user.find(name)->toolTip();
  };
  QTEST(said(), "english");
  user.press("cmdlan");
  QTEST(said(), "italian");
  user.press("cmdlan");
  QTEST(said(), "english");
}

void Commands::twoswitchesarenone() {
  User user;
  const QStringList before = words(user);
  const QImage flag = user.find("cmdlan")->grab().toImage();
  user.press("cmdlan");
  QVERIFY(words(user) != before);
  QVERIFY(user.find("cmdlan")->grab().toImage() != flag);
  user.press("cmdlan");
  QCOMPARE(words(user), before);
}

void Commands::menutitles() {
  User user;
  const auto titles = [&] {
    QStringList all;
    for (const QAction* action : user.window().menuBar()->actions())
      if (action->isVisible()) all << action->text().remove('&');
    return all;
  };
  for (const char* title : {"File", "View", "Hints", "Tools"}) QVERIFY2(titles().contains(title), title);
  user.press("cmdlan");
  for (const char* title : {"File", "Visualizza", "Suggerimenti", "Strumenti"})
    QVERIFY2(titles().contains(title), title);
}

void Commands::tickedentries() {
  User user;
  for (const char* entry : {"mnupencil", "mnuactivity", "mnunumber"}) {
    QVERIFY2(!user.menu(entry)->isChecked(), entry);
    user.choose(entry);
    QVERIFY2(user.menu(entry)->isChecked(), entry);
    user.choose(entry);
    QVERIFY2(!user.menu(entry)->isChecked(), entry);
  }
}

void Commands::undo() {
  User user;
  user.open(easypuzzle);
  user.press("candidate_21");
  user.press("Picture1_4");
  user.press("Text1_0");
  user.press("Picture1_9");
  QCOMPARE(user.text("txtesposti"), "32");
  user.press("Toolbar2_undo");
  QCOMPARE(user.text("Text1_2"), "");
  QCOMPARE(user.text("Text1_0"), "9");  // a given that was overwritten keeps the new digit in its box
}

void Commands::conta() {
  User user;
  user.press("Toolbar2_conta");
  QCOMPARE(user.boxes, QStringList{"no puzzle loaded"});
  user.open(easypuzzle);
  user.press("Toolbar2_conta");  // one solution: no message
  QCOMPARE(user.boxes.size(), 1);
  user.open(QByteArray(18, '.') + easysolution.mid(18));
  QCOMPARE(user.boxes.value(1), "More than one solution ");
  user.press("Toolbar2_conta");
  QCOMPARE(user.boxes.last(), "4 Solutions");
}

void Commands::risolvi() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar2_risolvi");
  QString digits;
  for (int cell = 0; cell < 81; ++cell) digits += user.text(QString("Text1_%1").arg(cell));
  QCOMPARE(digits, QString(easysolution));
  QCOMPARE(user.find("Text1_0")->palette().color(QPalette::Text), QColor(255, 0, 0));
  QCOMPARE(user.find("Text1_2")->palette().color(QPalette::Text), QColor(0, 0, 0));
  user.press("Toolbar2_risolvi");
  QCOMPARE(user.boxes, QStringList{"sudoku already completed"});
}

void Commands::refresh() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_modifica");
  user.press("candidate_21");
  user.key(Qt::Key_Home);
  user.key(Qt::Key_Delete);
  user.press("Toolbar1_modifica");
  QVERIFY(!user.shown("candidate_21"));
  user.press("Toolbar1_refresh");
  QVERIFY(user.shown("candidate_21"));
}

void Commands::newblank() {
  User user;
  user.open(easypuzzle);
  user.choose("mnunew");
  QCOMPARE(user.text("filetxt"), "nuovo schema");
  QCOMPARE(user.text("Text1_0"), "");
  QVERIFY(user.shown("Text1_2"));
  QCOMPARE(user.text("txtesposti"), "0");
  QCOMPARE(user.find("Text1_2")->palette().color(QPalette::Text), QColor(255, 0, 0));
}

void Commands::numero() {
  User user;
  user.press("Toolbar1_numero");
  QVERIFY(user.shown("Label3") && user.shown("Text5") && user.menu("mnunumber")->isChecked());
  user.choose("mnunumber");
  QVERIFY(!user.shown("Label3") && !user.shown("Text5") && !user.menu("mnunumber")->isChecked());
}

void Commands::pencilbehindtoolbar2() {
  User user;
  user.press("Toolbar2_new");
  QVERIFY(user.menu("mnupencil")->isChecked());
  QVERIFY(!user.shown("Text1_40") && user.shown("candidate_405"));
}

void Commands::clockruns() {
  User user;
  const QImage lamp = user.find("picstart")->grab().toImage();
  user.press("picstart");
  QCOMPARE(user.find("picstart")->toolTip(), "pause timer ");
  QVERIFY(user.find("picstart")->grab().toImage() != lamp);
  QTRY_VERIFY_WITH_TIMEOUT(user.text("tempotot").endsWith("s"), patience);
  user.press("picstart");
  const QString paused = user.text("tempotot");
  QCOMPARE(user.find("picstart")->toolTip(), "start timer ");
  QVERIFY(!timer2on);
  QTest::qWait(1200);
  QCOMPARE(user.text("tempotot"), paused);
}

void Commands::clockresets() {
  User user;
  user.press("picstart");
  QTRY_VERIFY_WITH_TIMEOUT(user.text("tempotot").endsWith("s"), patience);
  user.press("Picture2");
  QCOMPARE(user.text("tempotot"), "0");
  QVERIFY(!timer2on);
}

void Commands::messagebox() {
  User user;
  QString title;
  int buttons = 0;
  user.onbox = [&] {
    auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
    title = box->windowTitle();
    buttons = static_cast<int>(box->buttons().size());
    QCOMPARE(box->standardButtons(), QMessageBox::Ok);
    QTest::keyClick(box, Qt::Key_Return);
  };
  user.press("Toolbar1_suggerisci");
  QCOMPARE(title, "Gradino");
  QCOMPARE(buttons, 1);
}

void Commands::hiddentools() {
  User user;
  const QPoint spot = user.place("Frame1").center();
  QTest::mouseDClick(user.window().windowHandle(), Qt::LeftButton, {},
                     user.find("main")->mapTo(&user.window(), spot));
  QVERIFY(frmmain::cmdnice.visible);
  QTest::mouseDClick(user.window().windowHandle(), Qt::LeftButton, {},
                     user.find("main")->mapTo(&user.window(), spot));
  QVERIFY(!frmmain::cmdnice.visible);
}

WINDOW_TESTS(Commands)
#include "commands.moc"
