// How long a user waits for a hint: every hint of every puzzle of a file, always answered with go, from the
// key press to the traffic light. One thread, no window.
//
//   build/dev/bench/hint FILE...
//
// A puzzle is the first 81 characters of a line, "." or 0 for an empty cell.
#include <algorithm>
#include <chrono>
#include <exception>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "boardgrade.h"
#include "counter.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "puzzlefile.h"
#include "puzzles.h"
#include "startup.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace {

using namespace gradino;
using Clock = std::chrono::steady_clock;

struct Hint {
  double ms;
  std::string tag, puzzle;
};

/// Opens a puzzle and takes hints until there is none; appends how long each took.
void takehints(const std::string& puzzle, std::vector<Hint>& hints) {
  host = {};
  startprogram();
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
  countgivens();
  settleboard();
  mnupencil_Click();
  showboard();
  Clock::time_point pressed, shown;
  bool waited = false;
  host.waitevents = [&] {
    if (!waited) shown = Clock::now();
    waited = true;
    Pictgo_Click();
  };
  constexpr int endless = 300;  // a hint that changes nothing would come again for ever
  for (int n = 0; n < endless; ++n) {
    waited = false;
    pressed = Clock::now();
    try {
      stepsolver();
    } catch (const Fault&) {  // as the guard around each event does
    }
    if (!waited) return;
    hints.push_back({std::chrono::duration<double, std::milli>(shown - pressed).count(), steptag, puzzle});
  }
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app("Times the hints on files of puzzles.");
  std::vector<std::string> names;
  app.add_option("FILE", names)->required()->check(CLI::ExistingFile);
  CLI11_PARSE(app, argc, argv);

  for (const std::string& name : names) {
    std::vector<Hint> hints;
    for (const std::string& puzzle : bench::puzzlesof(name)) takehints(puzzle, hints);
    if (hints.empty()) {
      fmt::print(stderr, "{}: no puzzles\n", name);
      return 1;
    }
    std::sort(hints.begin(), hints.end(), [](const Hint& a, const Hint& b) { return a.ms < b.ms; });
    const auto at = [&](double part) {
      return hints[static_cast<std::size_t>(part * static_cast<double>(hints.size() - 1))].ms;
    };
    fmt::print("{:<24} {} hints: median {:.3f}, 99% {:.3f}, slowest {:.3f} ms ({} on {})\n",
               name.substr(name.rfind('/') + 1), hints.size(), at(0.5), at(0.99), at(1), hints.back().tag,
               hints.back().puzzle);
  }
} catch (const std::exception& error) {
  fmt::print(stderr, "hint_bench: {}\n", error.what());
  return 1;
}
