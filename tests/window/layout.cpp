// The position of everything, and what a program just started shows. The numbers are independent of those in
// the program.
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <utility>

#include "mainwindow.h"
#include "screenreader.h"
#include "startup.h"
#include "user.h"

using namespace gradino;

class Layout : public QObject {
  Q_OBJECT

 private slots:
  void clientarea();
  void cells();
  void pencilmarks_data();
  void pencilmarks();
  void numbers();
  void places();
  void colours_data();
  void colours();
  void stacking();
  void covered();
  void fonts();
  void keys();
  void notyetshown();
  void startstate();
};

void Layout::clientarea() {
  User user;
  QCOMPARE(user.find("main")->size(), QSize(491, 530));
  QCOMPARE(user.find("main")->pos().x(), 0);
  QVERIFY(user.find("main")->pos().y() > 0);  // the menu bar is above it
  QCOMPARE(user.find("main")->palette().color(QPalette::Window), QColor(0, 128, 128));
  QCOMPARE(user.window().windowTitle(), "Gradino");
  user.window().resize(800, 800);
  QTest::qWait(20);
  QCOMPARE(user.find("main")->size(), QSize(491, 530));
}

/// Fails the test with the box's name.
#define COMPARE_OF(name, actual, expected) \
  QVERIFY2((actual) == (expected), qPrintable(name + QString(" stands elsewhere")))

void Layout::cells() {
  User user;
  const int xs[] = {24, 65, 106, 151, 192, 233, 278, 319, 360};
  const int ys[] = {66, 107, 147, 192, 233, 274, 319, 360, 401};
  for (int cell = 0; cell < 81; ++cell) {
    const QRect place(xs[cell % 9], ys[cell / 9], 41, 41);
    for (const char* kind : {"Text1_%1", "Text2_%1"}) {
      const QString name = QString(kind).arg(cell);
      COMPARE_OF(name, user.place(name), place);
    }
  }
}

void Layout::pencilmarks_data() {
  QTest::addColumn<QPoint>("place");
  QTest::newRow("1") << QPoint(26, 68);  // 1 to 9 of cell 0, at 24, 66
  QTest::newRow("2") << QPoint(38, 68);
  QTest::newRow("3") << QPoint(50, 68);
  QTest::newRow("4") << QPoint(26, 80);
  QTest::newRow("5") << QPoint(38, 80);
  QTest::newRow("6") << QPoint(50, 80);
  QTest::newRow("7") << QPoint(26, 92);
  QTest::newRow("8") << QPoint(38, 92);
  QTest::newRow("9") << QPoint(50, 92);
  QTest::newRow("205") << QPoint(120, 161);  // cell 20 is at 106, 147
  QTest::newRow("809") << QPoint(386, 427);  // cell 80 at 360, 401
  QTest::newRow("0") << QPoint(498, 492);    // the template of the others
}
void Layout::pencilmarks() {
  User user;
  QFETCH(QPoint, place);
  const QString name = QString("candidate_") + QTest::currentDataTag();
  QCOMPARE(user.place(name), QRect(place, QSize(11, 13)));
  const int index = QString(QTest::currentDataTag()).toInt();
  QCOMPARE(user.text(name), index == 0 ? "8" : QString::number(index % 10));
}

void Layout::numbers() {
  User user;
  const int ys[] = {72, 116, 156, 200, 240, 282, 328, 366, 408};
  const int xs[] = {28, 68, 110, 152, 196, 236, 282, 322, 362};
  for (int n = 0; n < 18; ++n) {
    const QString name = QString("Label4_%1").arg(n);
    const QRect place = n < 9 ? QRect(0, ys[n], 24, 37) : QRect(xs[n - 9], 446, 36, 32);
    COMPARE_OF(name, user.place(name), place);
    QCOMPARE(user.text(name), QString::number(n % 9 + 1));
  }
}

void Layout::places() {
  User user;
  struct Row {
    const char* name;
    QRect place;  // labels and the light are as large as what they show
  };
  // clang-format off
  const Row rows[] = {
      {"lblfile",        {406,  64,   0,   0}},
      {"txtesposti",     {406,  84,  41,  31}},
      {"Label1",         {406, 116,   0,   0}},
      {"txtvuoti",       {406, 136,  41,  31}},
      {"Label3",         {406, 173,   0,   0}},
      {"Text5",          {406, 194,  41,  31}},
      {"Label2",         {410, 260,   0,   0}},
      {"tempotot",       {406, 280,  79,  19}},
      {"picstart",       {406, 306,  17,  18}},
      {"Picture2",       {470, 306,  17,  18}},
      {"Label5",         {406, 332,   0,   0}},
      {"txtprogressivo", {406, 352,  79,  19}},
      {"bkglabel",       {434, 444,  41,  19}},
      {"txthint",        {  4, 468, 485,  16}},
      {"filetxt",        {  4, 482, 485,  16}},
      {"txtlivello",     {  4, 498, 426,  16}},
      {"testototale",    {430, 498,  60,  16}},
      {"txtlivello1",    {  4, 514, 485,  16}},
      {"Check1",         {692, 264,   0,   0}},
      {"Frame1",         {  4,  62,  15,  11}},
      {"Toolbar2",       {  0,   0, 491,  28}},
      {"Toolbar1",       {  0,  28, 491,  28}},
      {"Pictgo",         {357,  34,   0,   0}},
      {"Pictalt",        {382,  34,   0,   0}},
      {"Picthelp",       {402,  34,   0,   0}},
      {"cmdlan",         {452,   2,  35,  25}},
      {"cmdimpossibili", {308,  32,  22,  22}},
      {"Cmdtest",        {329,   4,  22,  22}},
      {"colore_0",       {460, 114,  20,  20}},
      {"colore_1",       {460, 138,  20,  20}},
      {"colore_2",       {460,  90,  20,  20}},
      {"colore_3",       {460,  66,  20,  20}},
      {"colore_4",       {460, 234,  20,  20}},
      {"colore_5",       {460, 162,  20,  20}},
      {"colore_6",       {460, 186,  20,  20}},
      {"colore_7",       {460, 210,  20,  20}},
      {"colore_8",       {432, 235,  20,  20}},
  };
  // clang-format on
  for (const auto& [name, place] : rows) {
    COMPARE_OF(name, user.place(name).topLeft(), place.topLeft());
    if (!place.isEmpty()) COMPARE_OF(name, user.place(name).size(), place.size());
  }
}

void Layout::colours_data() {
  QTest::addColumn<QColor>("ground");
  QTest::addColumn<QColor>("text");
  const QColor teal(0, 128, 128), paleyellow(255, 255, 192), white(255, 255, 255);
  QTest::newRow("txthint") << QColor(0, 255, 255) << QColor(0, 0, 128);
  QTest::newRow("filetxt") << teal << paleyellow;
  QTest::newRow("txtesposti") << teal << paleyellow;
  QTest::newRow("lblfile") << teal << paleyellow;
  QTest::newRow("Label4_0") << teal << paleyellow;
  QTest::newRow("Text1_0") << white << QColor(255, 0, 0);
  QTest::newRow("candidate_405") << white << QColor(0, 0, 0);
}
void Layout::colours() {
  User user;
  QFETCH(QColor, ground);
  QFETCH(QColor, text);
  const QPalette palette = user.find(QTest::currentDataTag())->palette();
  QCOMPARE(palette.color(QPalette::Base), ground);
  QCOMPARE(palette.color(QPalette::Text), text);
}

// The digit box covers the pencil marks, they cover the background; the ring is above everything, toolbars
// too.
void Layout::stacking() {
  User user;
  const QPoint mark = user.place("candidate_15").center();
  const auto ontop = [&] { return user.find("main")->childAt(mark)->objectName(); };
  QCOMPARE(ontop(), "Text1_1");
  user.choose("mnupencil");
  QCOMPARE(ontop(), "candidate_15");
  user.find("candidate_15")->hide();
  QCOMPARE(user.find("Text2_1")->isAncestorOf(user.find("main")->childAt(mark)), true);
  user.choose("mnupencil");
  user.press("Text1_1");
  QCOMPARE(user.find("main")->childAt(user.place("Picture1_2").center())->objectName(), "Picture1_2");
  QVERIFY(user.place("Picture1_2").top() < user.place("Toolbar1").bottom());
  QCOMPARE(user.find("main")->childAt(user.place("cmdlan").center())->objectName(), "cmdlan");
}

// What the digits cover is added after the first painting, unless a reader is running, and is the same as if
// it had been there from the start.
void Layout::covered() {
  QStringList inorder = {"candidate_0"};
  for (int cell = 0; cell < 81; ++cell) {
    inorder << QString("Text2_%1").arg(cell);
    for (int k = 1; k <= 9; ++k) inorder << QString("candidate_%1").arg(cell * 10 + k);
    inorder << QString("Text1_%1").arg(cell);
  }
  const auto cellboxes = [&inorder](const QWidget& window) {
    QStringList names;
    for (const QObject* box : window.findChild<QWidget*>("main")->children()) names << box->objectName();
    return names.first(qMin(names.size(), inorder.size()));
  };
  {
    User user;
    QCOMPARE(cellboxes(user.window()), inorder);
  }
  startprogram();
  QVERIFY(MainWindow().findChild<QWidget*>("Text2_0") == nullptr);
  const auto listens = std::exchange(readerlistens, [] { return true; });
  const auto again = qScopeGuard([listens] { readerlistens = listens; });
  startprogram();
  QCOMPARE(cellboxes(MainWindow()), inorder);
}

void Layout::fonts() {
  User user;
  QCOMPARE(user.find("Text1_3")->font().family(), "Arial");
  QCOMPARE(user.find("Text1_3")->font().pixelSize(), 27);
  QVERIFY(user.find("Text1_3")->font().bold());
  QCOMPARE(user.find("Text2_3")->font().family(), "MS Sans Serif");
  QCOMPARE(user.find("Text2_3")->font().pixelSize(), 11);
  QCOMPARE(user.find("candidate_31")->font().pixelSize(), 11);
  for (const char* name : {"Label4_0", "lblfile", "Label2", "txtesposti", "tempotot"})
    QCOMPARE(user.find(name)->font().family(), "Comic Sans MS");
  QCOMPARE(user.get<QLineEdit>("Text1_3")->alignment(), Qt::AlignCenter);
}

/// The keys stand in the order of the bars, inside them, none on another one nor under what stands over them.
void Layout::keys() {
  User user;
  for (const char* bar : {"Toolbar1", "Toolbar2"}) {
    QRect last(0, 0, 0, 0);
    for (const QAbstractButton* key : user.find(bar)->findChildren<QAbstractButton*>()) {
      if (!key->isVisible()) continue;
      const QRect place = user.place(key->objectName());
      QVERIFY2(last.isNull() || place.left() > last.right(), qPrintable(key->objectName()));
      QVERIFY2(user.place(bar).contains(place), qPrintable(key->objectName()));
      for (const char* above : {"Pictgo", "Pictalt", "Picthelp", "cmdlan", "cmdimpossibili"})
        QVERIFY2(!place.intersects(user.place(above)), qPrintable(key->objectName()));
      last = place;
    }
  }
  QVERIFY(user.text("Toolbar2_open") == "Open" && user.text("Toolbar2_new") == "New");
  QVERIFY(user.text("Toolbar1_numero") == "numero" && user.text("Toolbar1_suggerisci") == "tip");
}

/// What starts hidden.
void Layout::notyetshown() {
  User user;
  for (const char* name : {"Label3", "Text5", "Check1", "bkglabel", "Pictgo", "Pictalt", "Picthelp"})
    QVERIFY2(!user.shown(name), name);
  QCOMPARE(user.ring(), QStringList());
  for (const char* name : {"Toolbar2_continuo", "cmdnice", "Cmdtest"}) {
    auto* hidden = user.window().findChild<QWidget*>(name);
    QVERIFY2(hidden == nullptr || !hidden->isVisible(), name);
  }
}

void Layout::startstate() {
  User user;
  QCOMPARE(user.text("lblfile"), "filled");
  QCOMPARE(user.text("Label1"), "empty");
  QCOMPARE(user.text("Label2"), "timer");
  QCOMPARE(user.text("Label5"), "grid id");
  QCOMPARE(user.text("tempotot"), "0");
  QCOMPARE(user.find("cmdlan")->toolTip(), "italiano");
  QCOMPARE(user.find("picstart")->toolTip(), "start timer");
  QCOMPARE(user.find("Picture2")->toolTip(), "reset timer");
  QCOMPARE(user.find("Pictalt")->toolTip(), "stop");
  for (int cell = 0; cell < 81; ++cell) {
    QVERIFY(user.shown(QString("Text1_%1").arg(cell)));
    QCOMPARE(user.text(QString("Text1_%1").arg(cell)), "");
  }
  QVERIFY(user.focused("Text1_0"));
}

WINDOW_TESTS(Layout)
#include "layout.moc"
