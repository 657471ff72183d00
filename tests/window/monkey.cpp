// A monkey uses the real window: clicks, keys, junk, menu choices, answers of the light, languages, files,
// the side windows, all at random. Nothing may crash or hang, no wait may be left open, and the board must be
// consistent again whenever it is reset.
//
//   GRADINO_MONKEY=200000        that many acts; without it a few thousand
//   GRADINO_MONKEY_SEED=7        the sequence; a failure prints its seed
//   GRADINO_MONKEY_ALOUD=1       prints each act
#include <QAbstractButton>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>

#include <unistd.h>

#include "boxes.h"
#include "events.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "mainwindow.h"
#include "startup.h"
#include "store.h"
#include "tables.h"
#include "user.h"

using namespace gradino;

class Monkey : public QObject {
  Q_OBJECT

 private slots:
  void acts();
};

namespace {

constexpr int actsasession = 500;  ///< then the program is started anew
constexpr int deepest = 8;         ///< acts inside acts; from there on only the light is answered
constexpr int turnsanact = 300;    ///< of a long job that lets events run

// What the watchdog and a crash print.
char lastwords[400] = "no act yet\n";
std::atomic<long> progress = 0;

void tell() {
  static_cast<void>(!write(2, lastwords, std::strlen(lastwords)));
}

void crashed(int signal) {
  tell();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

/// Ends the test when nothing happens for too long.
class Watchdog {
 public:
  Watchdog() : thread_([this] { watch(); }) {}
  ~Watchdog() {
    over_ = true;
    thread_.join();
  }

 private:
  void watch() const {
    constexpr int patience = 900;  // tenths of a second
    long seen = -1;
    for (int still = 0; !over_; ++still) {
      if (progress != seen) still = 0;
      seen = progress;
      if (still > patience) std::abort();
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
  }
  std::atomic<bool> over_ = false;
  std::thread thread_;
};

int number(const char* variable, int otherwise) {
  bool given = false;
  const int value = qEnvironmentVariableIntValue(variable, &given);
  return given ? value : otherwise;
}

QWidget* sidewindow(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

bool programruns() {
  bool runs = false;
  onevent([&] { runs = true; });
  return runs;
}

/// One program from its start to its end.
class Session {
 public:
  Session(unsigned seed, int length) : seed_(seed), left_(length), dice_(seed) {
    keepfiles();
    buttons_ = user_.window().findChildren<QAbstractButton*>();
    for (QAction* action : user_.window().findChildren<QAction*>())
      if (action->objectName().startsWith("mnu") && action->menu() == nullptr)
        entries_ << action->objectName();
    for (int cell = 0; cell < cellcount; ++cell) shown_ << user_.find(QString("Text1_%1").arg(cell));
    host.random = [this] { return std::uniform_real_distribution<>(0, 1)(dice_); };
    host.runevents = [this, turn = host.runevents] {
      ++progress;
      if (++turns_ % turnsanact == 0) left_ > 0 ? act() : endjob();
      turn();
    };
    user_.onwait = [this] { answer(); };
  }

  int run() {
    QTimer driver;
    driver.callOnTimeout(&user_, [this] {
      if (left_ <= 0 || !failure.isEmpty()) {
        user_.window().close();
        return;
      }
      act();
      check();
    });
    driver.start(0);
    QCoreApplication::exec();
    return done_;
  }

  QString failure;

 private:
  int below(int n) { return std::uniform_int_distribution<>(0, n - 1)(dice_); }
  bool oneof(int n) { return below(n) == 0; }
  template <class List>
  auto pick(const List& list) {
    return list[below(static_cast<int>(list.size()))];
  }

  void keepfiles() {
    const QByteArray junk = QByteArray::fromHex("00ff80c3280d0a1a7f");
    // clang-format off
    files_ = {
        user_.file("easy.sav", easypuzzle + "\r\n"),
        user_.file("full.sav", easysolution + "\r\n"),
        user_.file("several.sav", QByteArray(18, '.') + easysolution.mid(18) + "\r\n"),
        user_.file("blank.sav", QByteArray(81, '.') + "\r\n"),
        user_.file("wrong.sav", "55" + easypuzzle.mid(2) + "\r\n"),
        user_.file("short.sav", easypuzzle.left(40)),
        user_.file("lineless.sdk", easypuzzle),
        user_.file("junk.sdk", junk.repeated(100)),
        user_.file("junk.lgc", junk),
        user_.file("commas.sas", QByteArray("1,2,,x\r\n").repeated(12)),
        user_.file("words.txt", "no puzzle at all\r\n\r\n"),
        user_.file("long.txt", QByteArray(100000, '7')),
        user_.file("noending", easypuzzle + "\r\n"),
        user_.file("perché.sav", easypuzzle + "\r\n"),
        user_.file("new.sav"), user_.file("new.sdk"), user_.file("new.txt"), user_.file("new"),
        user_.file("no/such/folder.sav"), "/", "", "*?\\", "/dev/null/x.sav",
    };
    // clang-format on
  }

  void act() {
    if (left_ <= 0 || QApplication::activeModalWidget() != nullptr || !programruns()) return;
    if (depth_ >= deepest) {
      if (waiting()) user_.press(oneof(2) ? "Pictgo" : "Pictalt");
      return;
    }
    --left_;
    ++done_;
    ++depth_;
    ++progress;
    user_.names = {oneof(5) ? std::nullopt : std::optional<QString>(pick(files_))};
    user_.boxes.clear();
    one();
    --depth_;
  }

  /// A long job would go on for hours with nobody left to end it.
  void endjob() { user_.window().close(); }

  void note(const char* what, const QString& name) {
    static const bool aloud = qEnvironmentVariableIsSet("GRADINO_MONKEY_ALOUD");
    std::snprintf(lastwords, sizeof lastwords, "GRADINO_MONKEY_SEED=%u, act %d at depth %d: %s %s\n", seed_,
                  done_, depth_, what, qPrintable(name));
    if (aloud) tell();
  }

  /// A wait asks: mostly it gets an answer.
  void answer() {
    static const char* const lights[] = {"Pictgo", "Pictgo", "Pictalt", "Picthelp"};
    if (waiting() && !oneof(3)) {
      ++progress;
      user_.press(depth_ >= deepest ? (oneof(2) ? "Pictgo" : "Pictalt") : pick(std::span(lights)));
    } else {
      act();
    }
    // Nothing will answer any more: the session ends at any depth.
    if (left_ <= 0) user_.window().close();
  }

  void one() {
    const int dice = below(1000);
    if (dice < 300) {
      click();
    } else if (dice < 450) {
      button();
    } else if (dice < 750) {
      keys();
    } else if (dice < 850) {
      const QString entry = pick(entries_);
      note("menu", entry);
      if (entry == "mnuopen" || entry == "mnusave" || entry == "mnuadvanced")
        if (!oneof(4)) return;
      user_.choose(entry);
    } else if (dice < 900) {
      note("move", "");
      user_.moveto(somewhere());
    } else if (dice < 920) {
      note("language", "");
      user_.press("cmdlan");
    } else if (dice < 930) {
      note("open", user_.names.front().value_or("cancel"));
      user_.press("Toolbar2_open");
    } else if (dice < 960) {
      note("log", "");
      doubleclicklog();
    } else if (dice < 985) {
      note("library", "");
      clicklibrary();
    } else if (dice < 990) {
      note("frame", "");
      QTest::mouseDClick(user_.find("Frame1"), Qt::LeftButton);
    } else if (dice < 999) {
      note("close", "");
      closesidewindow();
    } else {
      note("main window closed", "");
      if (oneof(4)) user_.window().close();
    }
  }

  QPoint somewhere() { return {below(frmmain::clientwidth), below(frmmain::clientheight)}; }

  void click() {
    const QPoint place = oneof(3) ? somewhere() : QPoint(24 + below(377), 66 + below(376));
    note("click", QString("%1,%2").arg(place.x()).arg(place.y()));
    user_.pressat(place);
  }

  void button() {
    const QAbstractButton* chosen = pick(buttons_);
    note("button", chosen->objectName());
    const bool rare =
        QStringList{"cmdnice", "Toolbar2_genera", "Toolbar2_continuo", "Toolbar2_open", "Toolbar2_save"}
            .contains(chosen->objectName());
    if (chosen->isVisible() && (!rare || oneof(5))) user_.press(chosen->objectName());
  }

  void keys() {
    static const Qt::Key odd[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Home, Qt::Key_End,   Qt::Key_Tab,
                                  Qt::Key_Return,    Qt::Key_Space,  Qt::Key_F1,   Qt::Key_Escape};
    static const Qt::Key arrows[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
    const int kind = below(10);
    note("key", QString::number(kind));
    if (kind < 4) return user_.key(pick(std::span(arrows)));
    if (kind < 7) return user_.type(QString::number(below(10)));
    if (kind < 8) return user_.key(pick(std::span(odd)));
    if (kind < 9) return user_.type(QString(QChar(33 + below(94))));
    static const char* const junk[] = {"12", "x7", "-1", "99999999999", " 5", "0", "123456789", "5 5"};
    user_.type(pick(std::span(junk)));
  }

  void doubleclicklog() {
    QWidget* log = sidewindow("Frmlog");
    if (log == nullptr) return user_.choose("mnuactivity");
    auto* text = log->findChild<QPlainTextEdit*>("Text3");
    QTest::mouseDClick(text->viewport(), Qt::LeftButton, {},
                       {below(text->viewport()->width()), below(text->viewport()->height())});
  }

  void clicklibrary() {
    QWidget* library = sidewindow("frmlivello");
    if (library == nullptr) return user_.choose("mnulibreria");
    QTest::mouseClick(library->windowHandle(), Qt::LeftButton, {},
                      {below(library->width()), below(library->height())});
    if (oneof(5)) QTest::keyClick(library->windowHandle(), Qt::Key(Qt::Key_0 + below(10)));
  }

  void closesidewindow() {
    static const char* const names[] = {"Frmlog", "frmactivity", "frmlivello", "frmgeneratore"};
    if (QWidget* window = sidewindow(pick(std::span(names)))) window->close();
  }

  void demand(bool truth, const char* what) {
    if (!truth && failure.isEmpty()) failure = QString("%1 -- %2").arg(what, lastwords);
  }

  // Nothing runs now.
  void check() {
    if (!programruns()) return;
    // An opening that was cancelled or failed leaves the boxes' changes ignored up to the next one that
    // succeeds; nothing else may.
    if (frmmain::bkglabel.visible) openingfailed_ = true;
    if (!suppresschange) openingfailed_ = false;
    demand(!suppresschange || openingfailed_, "the boxes' changes are still ignored");
    demand(!unattended, "message boxes don't wait any more");
    demand(!waiting() && !user_.shown("Pictgo") && !user_.shown("Pictalt") && !user_.shown("Picthelp"),
           "the light is shown and nobody waits");
    demand(QApplication::activeModalWidget() == nullptr, "a box is left open");
    if (done_ % 20 == 0) checkboard();
  }

  void checkboard() {
    for (int cell = 0; cell < cellcount; ++cell) {
      demand(dynamic_cast<QLineEdit*>(shown_[cell])->text().toStdString() == frmmain::Text1(cell).text,
             "a box shows what it doesn't hold");
      demand((candmask(cell) & ~fullmask) == 0, "a mask beyond nine digits");
      if (cellvalue(cell) < 0 || cellvalue(cell) > 9)
        return;  // typed by the monkey: reported, and kept until it is changed
    }
    if (!frmmain::txtesposti.text.empty())
      demand(
          leadingnumber(frmmain::txtesposti.text) + QString::fromStdString(frmmain::txtvuoti.text).toInt() ==
              cellcount,
          "the two counts don't make a board");
    user_.press("Toolbar1_refresh");
    for (int cell = 0; cell < cellcount; ++cell)
      demand(candmask(cell) == opento(cell), "a refresh that isn't one");
    for (int digit = 1; digit <= 9; ++digit)
      for (int row = 0; row < 9; ++row) {
        int columns = 0;
        for (int column = 0; column < 9; ++column)
          if (hascandidate(row * 9 + column, digit)) ++columns;
        demand(rowpos(digit, row).length() == columns, "an index that isn't true");
      }
  }

  /// The digits that the board leaves to a cell.
  static int opento(int cell) {
    if (cellvalue(cell) != 0) return 0;
    int mask = fullmask;
    for (int other = 0; other < cellcount; ++other) {
      const bool sees = other / 9 == cell / 9 || other % 9 == cell % 9 ||
                        (other / 27 == cell / 27 && other % 9 / 3 == cell % 9 / 3);
      if (sees) mask &= ~(1 << cellvalue(other));
    }
    return mask;
  }

  User user_;
  unsigned seed_;
  int left_, done_ = 0, depth_ = 0, turns_ = 0;
  bool openingfailed_ = false;
  std::mt19937 dice_;
  QStringList files_, entries_;
  QList<QAbstractButton*> buttons_;
  QList<QWidget*> shown_;
};

/// A library with a few puzzles of two levels, one of them too short to be one.
void makelibrary(const QString& folder) {
  Store store(QFile::encodeName(folder + "/schemigenerati.mdb").toStdString());
  for (int n = 0; n < 6; ++n) {
    LibraryRow row;
    row[field::progressivo] = std::to_string(8371 + n);
    row[field::stringa] = (n == 5 ? easypuzzle.left(30) : easypuzzle).toStdString();
    row[field::livello] = n % 2 == 0 ? "1" : "4";
    row[field::difficolta] = std::to_string(50 + n);
    store.insert(row);
  }
}

}  // namespace

void Monkey::acts() {
  const int wanted = number("GRADINO_MONKEY", 1500);
  const auto seed = static_cast<unsigned>(number("GRADINO_MONKEY_SEED", 1));
  QTemporaryDir folder;
  makelibrary(folder.path());
  apppath = folder.path().toStdString();
  for (const int signal : {SIGABRT, SIGSEGV}) std::signal(signal, crashed);
  const Watchdog watchdog;
  unsigned session = 0;
  for (int done = 0; done < wanted; ++session) {
    Session one(seed + session, qMin(actsasession, wanted - done));
    done += one.run();
    QVERIFY2(one.failure.isEmpty(), qPrintable(one.failure));
    if (session % 20 == 19) qInfo("%d acts", done);
  }
  apppath.clear();
}

int main(int argc, char** argv) {
  qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");  // a long run is watched from here
  Monkey tests;
  return runtests(tests, argc, argv);
}
#include "monkey.moc"
