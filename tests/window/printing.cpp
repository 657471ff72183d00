// The page: a picture of the window, at its size. A PDF written by the same painting is rendered and compared
// with the window; with a print server of its own (tools/print-test.sh) printing is tested too.
#include "printing.h"

#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <stdexcept>

#include "boxes.h"
#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Printing : public QObject {
  Q_OBJECT

 private slots:
  void page_data();
  void page();
  void noprinter();
  void refusals();
  void onpaper();
  void refused();
};

namespace {

constexpr int dots = 96;  ///< an inch

/// The page as a picture: null when there is nothing to render it with.
QImage rendered(const QString& pdf) {
  const QString program = QStandardPaths::findExecutable("pdftoppm");
  if (program.isEmpty()) return {};
  QProcess::execute(program, {"-png", "-singlefile", "-r", QString::number(dots), pdf, pdf});
  return QImage(pdf + ".png");
}

/// How much of one colour a place holds.
int pixelsof(const QImage& picture, const QRect& place, const std::function<bool(QColor)>& colour) {
  int count = 0;
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (int x = place.left(); x <= place.right(); ++x)
      if (colour(picture.pixelColor(x, y))) ++count;
  return count;
}

bool isred(QColor colour) {
  return colour.red() > 180 && colour.green() < 90 && colour.blue() < 90;
}
bool isdark(QColor colour) {
  return colour.lightness() < 110;
}
bool isteal(QColor colour) {
  return colour.red() < 40 && qAbs(colour.green() - 128) < 40 && qAbs(colour.blue() - 128) < 40;
}

/// Where the page begins to show the window: its paper has margins.
QPoint origin(const QImage& page) {
  for (int y = 0; y < page.height(); ++y)
    for (int x = 0; x < page.width(); ++x)
      if (page.pixelColor(x, y).lightness() < 250) return {x, y};
  return {};
}

}  // namespace

void Printing::page_data() {
  QTest::addColumn<bool>("marks");
  QTest::addColumn<bool>("ring");
  QTest::newRow("digits") << false << false;
  QTest::newRow("pencil marks") << true << false;
  QTest::newRow("ring") << true << true;
}
void Printing::page() {
  QFETCH(bool, marks);
  QFETCH(bool, ring);
  User user;
  user.open(easypuzzle);
  if (!marks) user.press("Toolbar1_pencil");
  if (ring) user.press("Text1_30");

  const QString pdf = user.file("page.pdf");
  QPrinter printer(QPrinter::ScreenResolution);
  printer.setResolution(dots);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(pdf);
  printer.setPageMargins({0, 0, 0, 0});
  printclient(*user.find("main"), printer);
  const QImage page = rendered(pdf);
  if (page.isNull()) QSKIP("pdftoppm is not there: Debian's poppler-utils");
  if (const QString keep = qEnvironmentVariable("GRADINO_KEEP_PAGE"); !keep.isEmpty()) page.save(keep);

  const QPoint corner = origin(page);
  QVERIFY2(corner.x() < 4 && corner.y() < 4, "the page begins elsewhere");
  const QRect bottomright(corner + QPoint(470, 440), QSize(15, 20)), beyond(500, 540, 100, 100);
  QVERIFY2(pixelsof(page, bottomright, isteal) > 250, "the page isn't the window's size");
  QCOMPARE(pixelsof(page, beyond, isdark), 0);
  const auto at = [&](const QString& name) { return user.place(name).translated(corner); };
  QVERIFY2(pixelsof(page, at("Text1_0"), isred) > 40, "a digit isn't red");
  QCOMPARE(pixelsof(page, at("Text1_2"), isred), 0);
  const int dark = pixelsof(page, at("Text2_2").adjusted(3, 3, -3, -3), isdark);
  QVERIFY2(marks ? dark > 15 : dark == 0, qPrintable(QString::number(dark)));

  // The page is compared with the window: every part of the board must be equally dark.
  const QImage window = user.find("main")->grab().toImage();
  for (const char* name :
       {"Text1_0", "Text1_40", "Text1_80", "candidate_21", "txtesposti", "filetxt", "Picture1_5"}) {
    const int there = pixelsof(window, user.place(name), isdark), here = pixelsof(page, at(name), isdark);
    QVERIFY2(qAbs(there - here) <= 20 + there / 2,
             qPrintable(QString("%1: %2 and %3").arg(name).arg(there).arg(here)));
  }
  const int onring = pixelsof(page, at("Picture1_5"), isdark);
  QVERIFY2(!ring || onring > 10, "no ring on the page");
}

void Printing::noprinter() {
  if (qEnvironmentVariableIsSet("GRADINO_PRINT_TEST")) QSKIP("there is a printer");
  User user;
  user.open(easypuzzle);
  user.choose("mnuprint");
  user.press("cmdlan");
  user.press("Toolbar2_print");
  QCOMPARE(user.boxes, QStringList({"There is no default printer. The puzzle stays as it is.",
                                    "Nessuna stampante predefinita. Lo schema resta com'è."}));
  QCOMPARE(user.text("Text1_0"), "5");
  QCOMPARE(user.text("txtesposti"), "30");
}

void Printing::refusals() {
  User user;
  const auto report = [](Queue queue) {
    try {
      expectpage("paper", queue);
    } catch (const std::runtime_error& error) {
      return QString(error.what());
    }
    return QString();
  };
  const Queue rejecting{.rejects = true}, standing{.stands = true}, both{.rejects = true, .stands = true};
  const auto all = [&] {
    return QStringList({report({}), report(rejecting), report(standing), report(both)});
  };
  QCOMPARE(all(), QStringList({"", "The printer \"paper\" takes no jobs. The puzzle stays as it is.",
                               "The printer \"paper\" is stopped. The puzzle stays as it is.",
                               "The printer \"paper\" takes no jobs. The puzzle stays as it is."}));
  user.press("cmdlan");
  QCOMPARE(all(), QStringList({"", "La stampante \"paper\" non accetta stampe. Lo schema resta com'è.",
                               "La stampante \"paper\" è ferma. Lo schema resta com'è.",
                               "La stampante \"paper\" non accetta stampe. Lo schema resta com'è."}));
}

// From the menu at once; from the toolbar, which then turns the pencil marks on.
void Printing::onpaper() {
  if (!qEnvironmentVariableIsSet("GRADINO_PRINT_TEST")) QSKIP("to be run by tools/print-test.sh");
  User user;
  user.open(easypuzzle);
  user.choose("mnupencil");
  user.choose("mnuprint");
  QCOMPARE(user.boxes, QStringList());
  QVERIFY(!user.menu("mnupencil")->isChecked());
  user.press("Toolbar2_print");
  QCOMPARE(user.boxes, QStringList());
  QVERIFY(user.menu("mnupencil")->isChecked());
}

// There is a queue, but it prints nothing, as was set before.
void Printing::refused() {
  const QString why = qEnvironmentVariable("GRADINO_PRINT_TEST");
  if (why != "rejecting" && why != "stopped") QSKIP("to be run by tools/print-test.sh");
  User user;
  user.open(easypuzzle);
  user.choose("mnuprint");
  QCOMPARE(user.boxes,
           QStringList(why == "stopped" ? "The printer \"paper\" is stopped. The puzzle stays as it is."
                                        : "The printer \"paper\" takes no jobs. The puzzle stays as it is."));
  QCOMPARE(user.text("Text1_0"), "5");
}

WINDOW_TESTS(Printing)
#include "printing.moc"
