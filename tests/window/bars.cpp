// Menu, toolbars and loose buttons row by row: words in both languages, guards, and what each command does.
#include <QAbstractButton>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "boxes.h"
#include "host.h"
#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Bars : public QObject {
  Q_OBJECT

 private slots:
  void menu();
  void toolbars_data();
  void toolbars();
  void captions();
  void everykeywaits_data();
  void everykeywaits();
  void menuhasnolock();
  void nopuzzle_data();
  void nopuzzle();
  void nothingloadedtosolve();
  void fullboard_data();
  void fullboard();
  void marksafter_data();
  void marksafter();
  void techniques_data();
  void techniques();
  void keyandentrydiffer_data();
  void keyandentrydiffer();
  void printing();
};

namespace {

struct Row {
  const char *name, *english, *italian;
};

// clang-format off
const Row entries[] = {
    {"mnufile",       "File",                     "File"},
    {"mnuopen",       "Open",                     "Apri"},
    {"mnusave",       "Save",                     "Salva"},
    {"mnunew",        "New blank",                "Nuovo"},
    {"mnuprint",      "Print",                    "Stampa"},
    {"mnulibreria",   "Open library",             "Libreria"},
    {"mnuview",       "View",                     "Visualizza"},
    {"mnupencil",     "Show pencil marks",        "Mostra candidati"},
    {"mnurefresh",    "Refresh pencil marks",     "Rigenera candidati"},
    {"mnuedit",       "Edit pencil marks",        "Modifica candidati"},
    {"mnuactivity",   "Show activity",            "Mostra attivita'"},
    {"mnuhints",      "Hints",                    "Suggerimenti"},
    {"mnuposition",   "Suggest position",         "suggerisci posizione"},
    {"mnunumber",     "Suggest number",           "suggerisci numero"},
    {"mnutecniche",   "Tecniques",                "Tecniche"},
    {"mnurestricted", "Intersections",            "Intersezioni"},
    {"mnunakedpair",  "Naked Pair",               "Naked Pair"},
    {"mnuhidden",     "Hidden pair",              "Hidden pair"},
    {"mnutriplet",    "Naked-Hidden triple-quad", "Naked-Hidden triple-quad"},
    {"mnuxy",         "XY-XYZ Wing",              "XY-XYZ Wing"},
    {"mnuxwing",      "X Wing",                   "X Wing"},
    {"mnusword",      "Sword Fish -JellyFish",    "Sword Fish -JellyFish"},
    {"mnucolori",     "Coloring",                 "Colori"},
    {"mnuchain",      "Forcing chain",            "Catene forzate"},
    {"mnutools",      "Tools",                    "Strumenti"},
    {"mnusolve",      "Solve",                    "Risolvi"},
    {"mnugenerator",  "Generator",                "Generatore"},
    {"mnuadvanced",   "Advanced",                 "Avanzato"},
};
const Row upperbar[] = {
    {"open",     "open",                 "apri"},
    {"new",      "new",                  "nuovo"},
    {"libreria", "library",              "libreria"},
    {"save",     "save",                 "salva"},
    {"print",    "print",                "stampa"},
    {"risolvi",  "solution",             "risolvi"},
    {"conta",    "count solutions",      "conta soluzioni"},
    {"undo",     "from scratch",         "rigenera schema"},
    {"genera",   "generator",            "generatore"},
    {"continuo", "continuous generator", "generatore continuo"},
};
const Row lowerbar[] = {
    {"pencil",      "pencil marks",             "candidati"},
    {"refresh",     "refresh pencil marks",     "rigenera candidati"},
    {"modifica",    "edit pencil marks",        "edit pencil marks"},
    {"activity",    "activity log",             "log attività"},
    {"obbligate",   "intersections",            "intersezioni"},
    {"nakedpair",   "naked pair",               "doppia nuda"},
    {"hidden",      "hidden pair",              "doppia nascosta"},
    {"nakedtriple", "naked_hidden triple-quad", "triple quadruple"},
    {"xywing",      "XY-XYZ Wing ",             "XY-XYZ Wing"},
    {"xwing",       "X Wing",                   "X Wing"},
    {"sword",       "swordfish-jellyfish",      "swordfish-jellyfish"},
    {"colori",      "colors",                   "colori"},
    {"chain",       "loops - chains",           "cicli - catene forzate"},
    {"numero",      "show hint number",         "mostra suggerimento"},
    {"suggerisci",  "hint",                     "suggerisci"},
};
// clang-format on

/// Titles and entries from left to right and from top to bottom.
QStringList menuwords(User& user) {
  QStringList all;
  for (const QAction* title : user.window().menuBar()->actions()) {
    all << title->objectName() + ": " + title->text().remove('&');
    for (const QAction* entry : title->menu()->actions()) all << entry->objectName() + ": " + entry->text();
  }
  return all;
}

/// A bar's keys that are shown, from left to right, with their tool tips.
QStringList barwords(User& user, const QString& bar) {
  QList<QAbstractButton*> keys = user.find(bar)->findChildren<QAbstractButton*>();
  keys.removeIf([](const QAbstractButton* key) { return !key->isVisible(); });
  std::sort(keys.begin(), keys.end(),
            [](const QAbstractButton* a, const QAbstractButton* b) { return a->x() < b->x(); });
  QStringList all;
  for (const QAbstractButton* key : keys) all << key->objectName() + ": " + key->toolTip();
  return all;
}

template <class Rows>
QStringList expected(const Rows& rows, bool italian, const QString& before = {}) {
  QStringList all;
  for (const Row& row : rows) all << before + row.name + ": " + (italian ? row.italian : row.english);
  return all;
}

void showhiddentools(User& user) {
  QTest::mouseDClick(user.window().windowHandle(), Qt::LeftButton, {},
                     user.find("main")->mapTo(&user.window(), user.place("Frame1").center()));
}

}  // namespace

void Bars::menu() {
  User user;
  QCOMPARE(std::size(entries), std::size_t(28));
  QCOMPARE(menuwords(user), expected(entries, false));
  user.press("cmdlan");
  QCOMPARE(menuwords(user), expected(entries, true));
  user.press("cmdlan");
  QCOMPARE(menuwords(user), expected(entries, false));
  for (const Row& row : entries) QVERIFY2(user.menu(row.name)->isEnabled(), row.name);
}

void Bars::toolbars_data() {
  QTest::addColumn<QString>("bar");
  QTest::addColumn<QStringList>("english");
  QTest::addColumn<QStringList>("italian");
  QTest::newRow("upper") << "Toolbar2" << expected(upperbar, false, "Toolbar2_")
                         << expected(upperbar, true, "Toolbar2_");
  QTest::newRow("lower") << "Toolbar1" << expected(lowerbar, false, "Toolbar1_")
                         << expected(lowerbar, true, "Toolbar1_");
}
void Bars::toolbars() {
  User user;
  QFETCH(QString, bar);
  QFETCH(QStringList, english);
  QFETCH(QStringList, italian);
  showhiddentools(user);
  QCOMPARE(barwords(user, bar), english);
  user.press("cmdlan");
  QCOMPARE(barwords(user, bar), italian);
  user.press("cmdlan");
  QCOMPARE(barwords(user, bar), english);
  showhiddentools(user);
  if (bar == "Toolbar2") english.removeLast();
  QCOMPARE(barwords(user, bar), english);
}

void Bars::captions() {
  User user;
  for (const char* language : {"english", "italian"}) {
    QVERIFY2(user.text("Toolbar2_open") == "Open" && user.text("Toolbar2_new") == "New", language);
    QVERIFY2(user.text("Toolbar1_numero") == "numero" && user.text("Toolbar1_suggerisci") == "tip", language);
    QVERIFY2(user.text("Toolbar2_save").isEmpty() && user.text("Toolbar1_chain").isEmpty(), language);
    QCOMPARE(user.find("cmdimpossibili")->toolTip(), "UR - BUGS");
    QCOMPARE(user.find("cmdnice")->toolTip(), "nice loops");
    QCOMPARE(user.find("Picture2")->toolTip(), "reset timer");
    QVERIFY(!user.find("Cmdtest")->isVisible());
    user.press("cmdlan");
  }
}

void Bars::everykeywaits_data() {
  QTest::addColumn<QString>("key");
  for (const Row& row : upperbar) QTest::newRow(row.name) << QString("Toolbar2_") + row.name;
  for (const Row& row : lowerbar)
    if (QString(row.name) != "pencil" && QString(row.name) != "numero")
      QTest::newRow(row.name) << QString("Toolbar1_") + row.name;
}
void Bars::everykeywaits() {
  User user;
  user.open(easypuzzle);
  showhiddentools(user);
  user.press("cmdlan");
  QFETCH(QString, key);
  user.acts = {[&] {
    user.press(key);
    QCOMPARE(user.boxes, QStringList{"per procedere, cliccare sul semaforo verde"});
    QVERIFY(user.shown("Pictgo"));
    user.press("Pictalt");
  }};
  user.choose("mnuposition");
  QCOMPARE(user.asked, 1);
  QCOMPARE(user.text("Text1_0"), "5");
}

// The menu starts a step inside the wait of another; one answer ends both.
void Bars::menuhasnolock() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.choose("mnuposition"); },
               [&] {
                 user.choose("mnuactivity");
                 QVERIFY(user.menu("mnuactivity")->isChecked());
                 user.choose("mnunumber");
                 QVERIFY(user.shown("Text5"));
                 user.press("Pictalt");
               }};
  user.choose("mnuposition");
  QCOMPARE(user.asked, 2);
  QCOMPARE(user.boxes, QStringList());
  QVERIFY(!user.shown("Pictgo") && !user.shown("Pictalt") && !user.shown("Picthelp"));
}

void Bars::nopuzzle_data() {
  QTest::addColumn<QString>("command");
  for (const char* name : {"Toolbar2_risolvi", "Toolbar2_conta", "Toolbar1_suggerisci", "mnuposition"})
    QTest::newRow(name) << name;
}
void Bars::nopuzzle() {
  User user;
  QFETCH(QString, command);
  const auto give = [&] { command.startsWith("mnu") ? user.choose(command) : user.press(command); };
  give();
  user.press("cmdlan");
  give();
  QCOMPARE(user.boxes, QStringList({"no puzzle loaded", "nessun schema caricato"}));
  QVERIFY(!user.menu("mnupencil")->isChecked());
}

void Bars::nothingloadedtosolve() {
  User user;
  user.choose("mnusolve");
  QCOMPARE(user.boxes, QStringList());
}

void Bars::fullboard_data() {
  QTest::addColumn<QString>("command");
  for (const char* name : {"Toolbar2_risolvi", "Toolbar2_conta", "mnusolve"}) QTest::newRow(name) << name;
}
void Bars::fullboard() {
  User user;
  user.open(easypuzzle);
  user.choose("mnusolve");
  QCOMPARE(user.text("txtesposti"), "81");
  if (user.menu("mnupencil")->isChecked()) user.choose("mnupencil");
  QFETCH(QString, command);
  const auto give = [&] { command.startsWith("mnu") ? user.choose(command) : user.press(command); };
  give();
  user.press("cmdlan");
  give();
  QCOMPARE(user.boxes, QStringList({"sudoku already completed", "schema già completato"}));
  QVERIFY(!user.menu("mnupencil")->isChecked());  // a refusal doesn't turn them on
}

void Bars::marksafter_data() {
  QTest::addColumn<QString>("key");
  for (const char* name : {"open", "new", "libreria", "save", "print", "risolvi", "conta", "undo", "genera"})
    QTest::newRow(name) << QString("Toolbar2_") + name;
}
void Bars::marksafter() {
  User user;
  user.open(easypuzzle);
  user.choose("mnupencil");
  QVERIFY(!user.menu("mnupencil")->isChecked());
  host.print = [] {};
  user.names = {user.file("again.sav", easypuzzle + "\r\n")};
  QFETCH(QString, key);
  user.press(key);
  QVERIFY(user.menu("mnupencil")->isChecked());
  QCOMPARE(user.boxes, QStringList());
}

void Bars::techniques_data() {
  QTest::addColumn<QString>("command");
  for (const Row& row : entries)
    if (QString(row.name) != "mnutecniche" && &row > &entries[14] && &row < &entries[24])
      QTest::newRow(row.name) << row.name;
  for (const Row& row : lowerbar)
    if (&row >= &lowerbar[4] && &row < &lowerbar[13])
      QTest::newRow(row.name) << QString("Toolbar1_") + row.name;
  QTest::newRow("cmdimpossibili") << "cmdimpossibili";
}

// Each works without a puzzle, says what it found or that there is nothing, and leaves no light on.
void Bars::techniques() {
  User user;
  QFETCH(QString, command);
  const auto give = [&] { command.startsWith("mnu") ? user.choose(command) : user.press(command); };
  give();
  QCOMPARE(user.boxes, QStringList());
  user.open(easypuzzle);
  user.onwait = [&] {
    QVERIFY(!user.text("txthint").isEmpty());
    user.press("Pictalt");
  };
  give();
  QCOMPARE(user.boxes, QStringList());
  QVERIFY(!user.shown("Pictgo"));
  QCOMPARE(user.text("txtesposti"), "30");
}

// The key goes on to the next search only when the one before found nothing; the entry runs them all.
void Bars::keyandentrydiffer_data() {
  QTest::addColumn<QString>("key");
  QTest::addColumn<QString>("entry");
  QTest::newRow("fish") << "Toolbar1_sword"
                        << "mnusword";
  QTest::newRow("colours") << "Toolbar1_colori"
                           << "mnucolori";
  QTest::newRow("chains") << "Toolbar1_chain"
                          << "mnuchain";
}
void Bars::keyandentrydiffer() {
  User user;
  user.open(easypuzzle);
  user.onwait = [&] { user.press("Pictalt"); };
  QFETCH(QString, key);
  QFETCH(QString, entry);
  user.press(key);
  QCOMPARE(user.asked, 1);
  user.choose(entry);
  QCOMPARE(user.asked, 3);
}

void Bars::printing() {
  User user;
  user.open(easypuzzle);
  user.choose("mnupencil");
  int printed = 0;
  host.print = [&] { ++printed; };
  user.choose("mnuprint");
  QVERIFY(!user.menu("mnupencil")->isChecked());
  user.press("Toolbar2_print");
  QCOMPARE(printed, 2);
}

WINDOW_TESTS(Bars)
#include "bars.moc"
