// Whole walks of the reference puzzles, hint after hint: what holds at each step, whatever technique it is.
#include <fstream>
#include <functional>
#include <set>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "bug.h"
#include "clearboard.h"
#include "counter.h"
#include "fish.h"
#include "forcing.h"
#include "grid.h"
#include "host.h"
#include "intersections.h"
#include "light.h"
#include "loops.h"
#include "nishio.h"
#include "pairs.h"
#include "player.h"
#include "rectangles.h"
#include "replay.h"
#include "simplecolours.h"
#include "step.h"
#include "stepsolver.h"
#include "subsets.h"
#include "wings.h"
#include "xcolours.h"
#include "xychains.h"

namespace gradino::tests {
namespace {

constexpr int idlelimit = 3;  ///< so many hints in a row that change nothing end a walk

/// Where a cell shows other pencil marks than it should, "r1c3 shows 15, not 5".
std::string wrongmarks(const std::function<std::string(int cell)>& candidates) {
  std::string wrong;
  for (int cell = 0; cell < cellcount; ++cell)
    if (const std::string has = candidates(cell), shown = visiblemarks(cell); shown != has)
      wrong += fmt::format("r{}c{} shows {}, not {}; ", cellrow(cell), cellcol(cell), shown, has);
  return wrong;
}

std::string maskdigits(int cell) {
  std::string digits;
  for (int digit = 1; digit <= 9; ++digit)
    if (candmask(cell) & bitvalue(digit)) digits += std::to_string(digit);
  return digits;
}

class Walks : public Program {
 protected:
  Walks() {
    host.waitevents = [this] {
      frames.push_back(look());
      player.event(answer);
    };
  }

  static std::vector<std::string> puzzles() {
    std::ifstream file(std::string(TESTDATA) + "/reference/walk.puzzles.txt");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  /// Puts a puzzle up with its solution known.
  void start(const std::string& puzzle) {
    clearboard();
    clearcolours();
    put(puzzle);
    conta();
    put(puzzle);
    frames.clear();
  }

  /// Asks for hints until there is none or goeson says no, and calls `after` after each.
  void walk(
      const std::string& puzzle, const Act& after,
      const std::function<bool()>& goeson = [] { return true; }) {
    start(puzzle);
    for (int idle = 0; idle < idlelimit && goeson();) {
      const std::string values0 = values();
      const std::vector<int> masks0 = masks();
      const std::size_t waits = frames.size();
      player.event(mnuposition_Click);
      if (frames.size() == waits) return;
      after();
      idle = values() == values0 && masks() == masks0 ? idle + 1 : 0;
    }
  }

  Act answer = go;            ///< at each wait
  std::vector<Frame> frames;  ///< one for each wait
};

// ---- pencil marks -----------------------------------------------------------------------------------------

class WalkedMarks : public Walks {
 protected:
  void expectmarksof(const std::function<std::string(int)>& candidates) {
    for (const std::string& puzzle : puzzles()) {
      walk(puzzle, [&] { EXPECT_EQ(wrongmarks(candidates), "") << puzzle << " " << frames.back().hint; });
      if (HasFailure()) return;
    }
  }
};

TEST_F(WalkedMarks, AreTheCandidatesAfterEachStep) {
  expectmarksof(maskdigits);
}

TEST_F(WalkedMarks, AreTheCandidatesAfterEachStepThatWasExplained) {
  bool explaining = false;
  answer = [&] {
    if (!explaining) {
      explaining = true;
      help();
      explaining = false;
    }
    if (lightresult == 0) go();
  };
  expectmarksof(maskdigits);
}

// A hidden pair narrows the masks ahead of its wait: stopped, it shows what candstr still has.
TEST_F(WalkedMarks, AreTheCandidatesWhenEachSecondWaitIsStopped) {
  int waits = 0;
  answer = [&] { (++waits % 2 == 0 ? stop : go)(); };
  expectmarksof([](int cell) { return candstr(cell); });
}

// ---- commands in a wait that find nothing -----------------------------------------------------------------

/// What a walk shows and does.
struct Walked {
  std::vector<Frame> frames;
  std::vector<std::string> values;
  std::vector<std::vector<int>> masks;
  bool operator==(const Walked&) const = default;
};

class CommandInVain : public Walks {
 protected:
  /// A walk whose techniques are stopped at each second wait. The command comes in at their waits.
  Walked walked(const std::string& puzzle, const Act& command) {
    Walked seen;
    int waits = 0;
    answer = [&] {
      const std::string tag = steptag;
      if (tag == "intersections" || tag.starts_with("findSingle") || tag == "findOneMissing") return go();
      command();
      steptag = tag;
      (++waits % 2 == 1 ? stop : go)();
    };
    walk(puzzle, [&] {
      seen.values.push_back(values());
      seen.masks.push_back(masks());
    });
    seen.frames = frames;
    return seen;
  }
};

// The ladder tries the intersections before any of these, so there are none on the board.
TEST_F(CommandInVain, LeavesTheLadderItsAnswer) {
  std::set<std::string> disturbed;
  for (const std::string& puzzle : puzzles()) {
    const Walked plain = walked(puzzle, [] {});
    const Walked seen = walked(puzzle, [&] {
      disturbed.insert(steptag);
      frmmain::intersections();
    });
    EXPECT_EQ(seen.frames, plain.frames) << puzzle;
    ASSERT_TRUE(seen == plain) << puzzle;
  }
  EXPECT_EQ(disturbed,
            (std::set<std::string>{"nakedpair", "hiddenpair", "findtriple", "findquad", "findxywing",
                                   "findxyzwing", "findxwing", "findswordfish", "findjellyfish", "colors",
                                   "ur", "bug", "xychain", "links", "xlinks"}));
}

struct Technique {
  const char* tag;
  void (*step)();
  void (*command)();  ///< as the menu runs it
};

void colouring() {
  frmmain::stepcolors();
  frmmain::stepxcolors();
}

// clang-format off
constexpr Technique techniques[] = {
    {"intersections", frmmain::intersections, frmmain::intersections},
    {"nakedpair",     frmmain::nakedpair,     frmmain::nakedpair},
    {"hiddenpair",    frmmain::hiddenpair,    frmmain::hiddenpair},
    {"findtriple",    frmmain::findtriple,    frmmain::findtriple},
    {"findquad",      frmmain::findquad,      frmmain::findquad},
    {"findxywing",    frmmain::findxywing,    frmmain::findxywing},
    {"findxyzwing",   frmmain::findxyzwing,   frmmain::findxyzwing},
    {"findxwing",     frmmain::findxwing,     frmmain::findxwing},
    {"findswordfish", frmmain::findswordfish, frmmain::findswordfish},
    {"findjellyfish", frmmain::findjellyfish, frmmain::findjellyfish},
    {"colors",        frmmain::stepcolors,    colouring},
    {"colors",        frmmain::stepxcolors,   colouring},
    {"ur",            frmmain::stepur,        frmmain::stepur},
    {"bug",           frmmain::stepbug,       frmmain::stepbug},
    {"xychain",       frmmain::stepxychain,   frmmain::stepxychain},
    {"links",         frmmain::steplinks,     frmmain::steplinks},
    {"xlinks",        frmmain::stepforcing,   frmmain::stepforcing},
    {"impossible",    frmmain::stepnishio,    frmmain::stepnishio},
};
// clang-format on

class HelpAfterACommandInVain : public Walks, public testing::WithParamInterface<Technique> {
 protected:
  /// Walks until the technique has found something.
  bool foundonce() {
    bool found = false;
    const auto findsnothing = [&] {
      const std::size_t waits = frames.size();
      answer = stop;
      player.event(GetParam().step);
      answer = go;
      found = frames.size() > waits;
      return !found;
    };
    for (const std::string& puzzle : puzzles()) {
      walk(
          puzzle, [] {}, findsnothing);
      if (found) break;
    }
    return found;
  }
};

TEST_P(HelpAfterACommandInVain, ExplainsNothing) {
  ASSERT_TRUE(foundonce());
  clearcolours();
  put(without(fullboard, {0}));
  player.play();
  player.script = {GetParam().command, help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 3u);
  const Frame waiting = {.tag = GetParam().tag,
                         .hint = "1 last digit in  block , r1c1",
                         .number = "1",
                         .activity = {},
                         .Text1 = {{0, "yellow"}},
                         .Text2 = {},
                         .candidate = {{1, "green"}}};
  EXPECT_EQ(player.frames[1], waiting);
  EXPECT_EQ(player.frames[2], waiting);
  EXPECT_EQ(values(), fullboard);
}
INSTANTIATE_TEST_SUITE_P(Technique, HelpAfterACommandInVain, testing::ValuesIn(techniques),
                         [](const auto& p) { return std::to_string(p.index + 1) + p.param.tag; });

}  // namespace
}  // namespace gradino::tests
