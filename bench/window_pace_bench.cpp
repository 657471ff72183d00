// The cost of the window for the continuous generator: puzzles a second in the window, with display, list and
// library, and in the same run without a window.
//
//   build/dev/bench/window_pace [SECONDS]      10 of each
//
// On the screen of the desktop; without one under QT_QPA_PLATFORM=offscreen.
//
// The first few puzzles take longer than the later ones, so that both runs last equally long.
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <random>
#include <string>

#include <fmt/format.h>

#include "boxes.h"
#include "continuous.h"
#include "events.h"
#include "host.h"
#include "librarycursor.h"
#include "look.h"
#include "mainwindow.h"
#include "startup.h"

namespace {

using namespace gradino;
using Clock = std::chrono::steady_clock;

struct Pace {
  long made = 0, kept = 0;
  double seconds = 0;
  double asecond() const { return static_cast<double>(made) / seconds; }
};

struct TimeIsUp {};

double since(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Both runs make the same puzzles.
void fixsequence() {
  host.random = [dice = std::mt19937(7)]() mutable { return std::uniform_real_distribution<>(0, 1)(dice); };
}

/// The generator looks at the clock once as it begins, once for each puzzle, and once more for one it keeps.
void countpuzzles(Pace& pace) {
  pace.made = -1;
  host.clock = [&pace, clock = host.clock] {
    ++pace.made;
    return clock();
  };
}

void finish(Pace& pace, Clock::time_point start) {
  pace.seconds = since(start);
  const std::string& list = frmgeneratore::Text1.text;
  for (auto at = list.find("schema"); at != std::string::npos; at = list.find("schema", at + 1)) ++pace.kept;
  pace.made -= pace.kept;
}

Pace withoutwindow(double seconds) {
  Pace pace;
  host = {};
  startprogram();
  fixsequence();
  countpuzzles(pace);
  const auto start = Clock::now();
  host.runevents = [&] {
    if (since(start) > seconds) throw TimeIsUp{};
  };
  try {
    frmmain::genera_e_conta();
  } catch (const TimeIsUp&) {
    finish(pace, start);
  }
  return pace;
}

Pace inwindow(double seconds) {
  Pace pace;
  startprogram();
  MainWindow window;
  window.show();
  fixsequence();
  countpuzzles(pace);
  Clock::time_point start;
  QTimer::singleShot(1000, &window, [&start] {
    start = Clock::now();
    onevent(frmmain::genera_e_conta);
  });
  QTimer::singleShot(static_cast<int>(1000 * (seconds + 1)), &window, [&] {
    finish(pace, start);
    window.close();
  });
  QApplication::exec();
  return pace;
}

void tell(const char* name, const Pace& pace) {
  fmt::print("{:<16} {:8.1f} a second   {} made, {} kept\n", name, pace.asecond(), pace.made, pace.kept);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication program(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  setlook();
  const double seconds = argc > 1 ? std::stod(argv[1]) : 10;
  const QTemporaryDir folder;
  apppath = folder.path().toStdString();
  const Pace shown = inwindow(seconds), alone = withoutwindow(seconds);
  closelibrary();
  tell("in the window", shown);
  tell("without one", alone);
  fmt::print("share {:.2f}\n", shown.asecond() / alone.asecond());
}
