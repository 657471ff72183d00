// Forcing chains: the search, what ends it, and what comes in between. What is said, shown and done on a
// board is in tests/cases/forcingchain.
#include "forcing.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "chainsteps.h"
#include "commands.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "light.h"
#include "log.h"
#include "nodequeue.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- the search once more ---------------------------------------------------------------------------------

std::string slotread(int cell, int digit, bool flag, std::size_t path) {
  return std::to_string(cell) + (flag ? "=" : "<>") + std::to_string(digit) + " " + std::to_string(path);
}

/// The search written as literally as possible: paths are texts, equal nodes are looked up one by one. It
/// reads the board's tables and shares nothing else with the search that it checks.
class LiteralForcing {
 public:
  int steps = 80;     ///< chainsteps
  std::string chain;  ///< of the last hypothesis that led to a contradiction
  int tried = 0, walkedfull = 0, queuefull = 0, toolong = 0;  ///< hypotheses, and how they ended
  std::vector<int> lengths;                                   ///< of each, in the order of the scan
  std::array<std::string, 261> slots;                         ///< of the last hypothesis's queue

  void all() {
    steps = 80;
    int best = 80, minimum = 1, maximum = 2, bestdigit = 0, bestcell = 0, most = 0;
    do {
      for (int cell = 0; cell <= 80; ++cell) {
        const int n = static_cast<int>(candstr(cell).size());
        most = std::max(most, n);
        if (n > maximum || n <= minimum) continue;
        for (char d : candstr(cell)) {
          if (solutiontext(cell) == std::string(1, d)) continue;
          hypothesis(d - '0', cell);
          lengths.push_back(steps);
          if (steps < 10) return;
          if (steps < best) best = steps, bestdigit = d - '0', bestcell = cell;
        }
      }
      ++minimum, ++maximum;
    } while (maximum <= most + 1);
    if (best < 20) hypothesis(bestdigit, bestcell);
  }

  void hypothesis(int digit, int cell) {
    ++tried;
    steps = limit_ = 80;
    state_ = {};
    nodes_.clear();
    append({cell, digit, true, "0,"});
    state_[cell * 10 + digit] = {1, "0,"};
    try {
      std::size_t i = 0;
      for (; i < nodes_.size() && nodes_.size() <= 250; ++i)
        if (static_cast<double>(nodes_[i].path.size()) / 3 < limit_)
          expand(Node(nodes_[i]));  // a copy: the queue grows
      if (i < nodes_.size()) ++walkedfull;
    } catch (const Over&) {
    }
  }

 private:
  struct Node {
    int cell, digit;
    bool flag;
    std::string path;
  };
  struct State {
    int truth = 0;  ///< 1 true, -1 false
    std::string path;
  };
  struct Over {};

  State& state(int cell, int digit) { return state_[cell * 10 + digit]; }
  static int other(int cell, int digit) {
    return candstr(cell)[0] - '0' == digit ? candstr(cell)[1] - '0' : candstr(cell)[0] - '0';
  }
  /// The places of a digit in the row, the column and the block of a cell.
  static std::array<std::vector<int>, 3> houses(int cell, int digit) {
    std::array<std::vector<int>, 3> all;
    for (char p : rowpos(digit, cell / 9).text()) all[0].push_back(cell / 9 * 9 + (p - '0'));
    for (char p : colpos(digit, cell % 9).text()) all[1].push_back((p - '0') * 9 + cell % 9);
    const int block = cell / 27 * 3 + cell % 9 / 3;
    for (char p : blockpos(digit, block).text()) all[2].push_back(blockcells(block, p - '0'));
    return all;
  }

  void expand(const Node& node) {
    const auto& [c, x, t, p] = node;
    const std::string own = candstr(c);
    if (t) {
      for (char y : own)
        if (y - '0' != x) make(c, y - '0', false, p);
    } else if (own.size() == 2) {
      make(c, other(c, x), true, p);
    } else {
      std::string joined;
      std::vector<int> left;
      for (char y : own)
        if (state(c, y - '0').truth == -1)
          joined += state(c, y - '0').path;
        else
          left.push_back(y - '0');
      if (left.size() == 1) make(c, left[0], true, p, joined);
    }
    for (const std::vector<int>& places : houses(c, x)) {
      if (t) {
        for (int q : places) {
          if (q == c) continue;
          make(q, x, false, p);
          if (candstr(q).size() == 2) make(q, other(q, x), true, p);
        }
        continue;
      }
      std::string joined;
      std::vector<int> left;
      for (int q : places)
        if (state(q, x).truth == -1)
          joined += state(q, x).path;
        else
          left.push_back(q);
      if (left.size() == 1) make(left[0], x, true, p, joined);
    }
  }

  void make(int q, int y, bool f, const std::string& p, const std::string& joined = "") {
    const std::size_t count = nodes_.size();
    const std::string token = (count < 10 ? "0" : "") + std::to_string(count) + ",";
    State& first = state(q, y);
    if (first.truth == 0) {
      first = {f ? 1 : -1, (joined.empty() ? p : joined) + token};
    } else if (first.truth != (f ? 1 : -1)) {
      if (count > 260) ++queuefull;
      if (count <= 260) contradiction({q, y, f, p + token}, first.path);
      throw Over{};
    }
    for (const Node& old : nodes_)
      if (old.cell == q && old.digit == y && old.flag == f && old.path.size() < p.size() + 5) return;
    if (count > 260) {
      ++queuefull;
      throw Over{};
    }
    append({q, y, f, p + token});
  }

  void append(const Node& node) {
    slots.at(nodes_.size()) = slotread(node.cell, node.digit, node.flag, node.path.size());
    nodes_.push_back(node);
  }

  void contradiction(const Node& node, const std::string& second) {
    nodes_.push_back(node);
    std::vector<Node> links;
    std::istringstream tokens(node.path + second);
    for (std::string token; std::getline(tokens, token, ',');) links.push_back(nodes_[std::stoul(token)]);
    if (links.size() > 40) {
      ++toolong;
      return;
    }
    steps = static_cast<int>(links.size());
    chain.clear();
    for (const Node& link : links)
      chain += "r" + std::to_string(link.cell / 9 + 1) + "c" + std::to_string(link.cell % 9 + 1) +
               (link.flag ? "=" : "<>") + std::to_string(link.digit) + " ";
  }

  int limit_ = 80;
  std::vector<Node> nodes_;
  std::array<State, 820> state_;
};

/// The chain in the link tables.
std::string stepsread(int steps) {
  std::string text;
  for (int k = 0; k < steps; ++k)
    text += "r" + std::to_string(cellrow(linkcell(k))) + "c" + std::to_string(cellcol(linkcell(k))) +
            (linkflag(k) ? "=" : "<>") + std::to_string(linkdigit(k)) + " ";
  return text;
}

class ForcingSearch : public Program {
 protected:
  /// The step with its wait stopped. True: it found something.
  bool found() {
    clearcolours();
    return !hintof(player, frmmain::stepforcing, stop).empty();
  }
  void expectasliteral(LiteralForcing& literal, const std::string& which) {
    literal.slots.fill(slotread(0, 0, false, 0));
    chaincell.clear();
    chaindigit.clear();
    chainflag.clear();
    chainpath.clear();
    literal.all();
    const bool shown = found();
    // A hypothesis that can't lead to a shorter chain any more is left early, so only for a chain that is
    // shown is the whole queue of its hypothesis there.
    for (int k = 0; shown && k < nodecount(); ++k)
      ASSERT_EQ(slotread(chaincell(k), chaindigit(k), chainflag(k), static_cast<std::size_t>(chainpath(k))),
                literal.slots[static_cast<std::size_t>(k)])
          << which << ", queue at " << k;
    EXPECT_EQ(chainsteps, literal.steps) << which;
    EXPECT_EQ(shown, literal.steps < 20) << which;
    if (shown) {
      EXPECT_EQ(stepsread(chainsteps), literal.chain) << which;
    }
    EXPECT_TRUE(player.boxes.empty()) << which;  // breadth first, a path never comes shorter a second time
  }
  /// An empty board of which a share of the wrong candidates is gone, and nothing is known of its solution.
  void drawthinned(std::mt19937 dice, unsigned percent) {
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell)
      solutiontext(cell) = fullboard.substr(static_cast<std::size_t>(cell), 1);
    thin(dice, percent);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
  }
  /// Takes a share of the wrong candidates away.
  void thin(std::mt19937& dice, unsigned percent) {
    for (int cell = 0; cell < cellcount; ++cell)
      for (int digit = 1; digit <= 9; ++digit)
        if (solutiontext(cell) != std::to_string(digit) && dice() % 100 < percent)
          deletecandidate(cell, digit);
    take(Marks{});
  }
  static std::vector<std::string> hardpuzzles(std::size_t count) {
    std::ifstream in(TESTDATA "/corpus/hard.txt");
    std::vector<std::string> puzzles;
    for (std::string line; puzzles.size() < count && std::getline(in, line);) puzzles.push_back(line);
    return puzzles;
  }
};

TEST_F(ForcingSearch, IsAsTheLiteralOneOnThinnedBoards) {
  std::mt19937 dice(21);
  LiteralForcing literal;
  for (const std::string& puzzle : hardpuzzles(12)) {
    put(puzzle);
    conta();
    for (unsigned percent : {0u, 15u, 25u, 35u}) {
      thin(dice, percent);
      expectasliteral(literal, puzzle + " " + std::to_string(percent));
    }
  }
}

TEST_F(ForcingSearch, WithoutAStoredSolutionEveryCandidateIsSupposed) {
  std::mt19937 dice(4);
  LiteralForcing literal;
  for (const std::string& puzzle : hardpuzzles(6)) {
    put(puzzle);
    conta();
    thin(dice, 30);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
    expectasliteral(literal, puzzle);
  }
}

// Cells with two candidates scattered over a board on which all others have all nine: the hypotheses run
// through most of it, until the queue has no place left.
TEST_F(ForcingSearch, IsAsTheLiteralOneWhereTheQueueFillsUp) {
  std::mt19937 dice(7);
  const auto below = [&dice](int bound) { return static_cast<int>(dice() % static_cast<unsigned>(bound)); };
  LiteralForcing literal;
  for (int board = 0; board <= 60; ++board) {
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
    for (int j = 0; j < 30; ++j) {
      const int cell = below(81), a = 1 + below(9), b = 1 + below(9);
      if (candstr(cell).size() == 9 && a != b) leave(cell, std::to_string(a) + std::to_string(b));
    }
    expectasliteral(literal, std::to_string(board));
  }
  EXPECT_GT(literal.walkedfull, 0);
  EXPECT_GT(literal.queuefull, 0);
  EXPECT_GT(literal.toolong, 0);
}

TEST_F(ForcingSearch, IsAsTheLiteralOneWhereTheOrderOfHousesDecides) {
  for (const auto& [seed, percent] : {std::pair(218u, 62u), {665u, 61u}, {746u, 58u}, {1034u, 66u}}) {
    LiteralForcing literal;
    drawthinned(std::mt19937(seed), percent);
    expectasliteral(literal, std::to_string(seed));
  }
}

// ---- which one is found -----------------------------------------------------------------------------------

constexpr int takenatonce = 10;

TEST_F(ForcingSearch, CellsWithTwoCandidatesComeFirstAndAShortChainEndsTheSearch) {
  std::mt19937 dice(10);
  int pairsfirst = 0, shorterlater = 0;
  for (const std::string& puzzle : hardpuzzles(12)) {
    put(puzzle);
    conta();
    thin(dice, 30);
    if (!found() || chainsteps >= takenatonce) continue;
    const int cell = linkcell(0), steps = chainsteps;
    LiteralForcing literal;
    for (int other = 0; other < cellcount; ++other)
      for (char digit : candstr(other)) {
        const bool before = std::tuple(candstr(other).size(), other) < std::tuple(candstr(cell).size(), cell);
        if (other == cell || solutiontext(other) == std::string(1, digit)) continue;
        literal.hypothesis(digit - '0', other);
        if (before) {
          EXPECT_GE(literal.steps, takenatonce) << puzzle;
        } else if (other < cell && literal.steps < takenatonce) {
          ++pairsfirst;
        } else if (literal.steps < steps) {
          ++shorterlater;
        }
      }
  }
  EXPECT_GT(pairsfirst, 0);
  EXPECT_GT(shorterlater, 0);
}

TEST_F(ForcingSearch, OfLongerChainsTheShortestOfTheBoardIsKept) {
  putcase("forcingchain/shortest-of-the-board");
  LiteralForcing literal;
  literal.all();
  ASSERT_TRUE(found());
  const int shortest = *std::min_element(literal.lengths.begin(), literal.lengths.end());
  EXPECT_EQ(shortest, 14);
  EXPECT_NE(literal.lengths.back(), shortest);  // so the tables hold another chain at the end of the scan
  EXPECT_EQ(chainsteps, shortest);
  EXPECT_EQ(cellrow(linkcell(0)), 7);
  EXPECT_EQ(cellcol(linkcell(0)), 4);
}

TEST_F(ForcingSearch, OnlyCandidatesThatTheSolutionMarksAsWrongAreSupposed) {
  putcase("forcingchain/two-paths");
  ASSERT_TRUE(found());
  EXPECT_EQ(linkcell(0), at(8, 7));
  EXPECT_EQ(linkdigit(0), 6);
  solutiontext(at(8, 7)) = "6";
  ASSERT_TRUE(found());
  EXPECT_NE(linkcell(0) * 10 + linkdigit(0), at(8, 7) * 10 + 6);
}

TEST_F(ForcingSearch, EventsRunBehindEachBandOfCells) {
  putcase("forcingchain/shortest-of-the-board");  // up to five candidates: bands of 2 to 6
  found();
  EXPECT_EQ(player.turns, 5);
  player.turns = 0;
  putcase("forcingchain/two-paths");  // found in the band of 4
  found();
  EXPECT_EQ(player.turns, 2);
}

// ---- bounds -----------------------------------------------------------------------------------------------

// Its shortest contradiction takes fifteen steps.
void puttoolongtograde() {
  std::istringstream in(
      "3457 1 234 23 235 6 47 8 9 "
      "459 6 2489 89 259 7 1 3 45 "
      "357 589 389 189 139 4 2 6 57 "
      "1 34 5 2346 2367 8 47 9 467 "
      "2 348 6 34 347 9 5 1 478 "
      "49 7 489 146 146 5 3 2 468 "
      "8 459 1 7 469 2 69 45 3 "
      "3469 49 349 5 469 1 8 7 2 "
      "456 2 7 469 8 3 69 45 1");
  const std::string_view solution =
      "314256789562897134789134265135628497246379518978415326851762943693541872427983651";
  std::string digits, text;
  Marks marks;
  for (int cell = 0; in >> text; ++cell) {
    digits += text.size() == 1 ? text : ".";
    if (text.size() > 1) marks.emplace_back(cell, text);
    solutiontext(cell) = solution.substr(static_cast<std::size_t>(cell), 1);
  }
  putpuzzle(digits);
  leave(marks);
}

// Fifteen steps and more are too many for the grader alone; twenty and more for the hint, too.
TEST_F(ForcingSearch, TheGraderGivesUpOnAChainOfFifteenSteps) {
  puttoolongtograde();
  nishioflag = true;
  foundflag = true;
  const Board before = theboard();
  frmgenerazione::gradeforcing();
  EXPECT_EQ(chainsteps, 15);
  EXPECT_EQ(player.boxes, std::vector<std::string>{""});
  EXPECT_EQ(runninglevel, 21);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(logcount, 0);
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(nishioflag);
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(found());  // the hint shows it
}

TEST_F(ForcingSearch, WhenTheGraderGivesUpNishioIsStillTried) {
  puttoolongtograde();
  SolveSudoku();
  ASSERT_FALSE(player.boxes.empty());
  EXPECT_EQ(player.boxes.front(), "");
  EXPECT_TRUE(Frmlog::Text3.text.starts_with("\r\nNISHIO CHAIN - If ")) << Frmlog::Text3.text;
}

TEST_F(ForcingSearch, AChainOfFourteenStepsIsGraded) {
  putcase("forcingchain/shortest-of-the-board");
  frmgenerazione::gradeforcing();
  EXPECT_EQ(chainsteps, 14);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(levelcount(21), 1);
}

TEST_F(ForcingSearch, AChainOfTwentyStepsIsNoFind) {
  for (const bool full : {false, true}) {
    if (full)
      put(fullboard);  // nothing to suppose at all
    else
      putcase("nishio/digit-without-place-in-row");  // its shortest contradiction takes twenty steps or more
    const Board before = theboard();
    foundflag = true;
    nishioflag = true;
    frmmain::txthint.text = "old";
    player.event(frmmain::stepforcing);
    EXPECT_GE(chainsteps, 20);
    EXPECT_TRUE(player.frames.empty());
    EXPECT_EQ(steptag, "xlinks");
    EXPECT_EQ(frmmain::txthint.text, "old");
    EXPECT_FALSE(foundflag);
    EXPECT_TRUE(nishioflag);
    EXPECT_EQ(Frmlog::Text3.text, "");
    EXPECT_EQ(logcount, 0);
    expectnopaint();
    EXPECT_EQ(theboard(), before);
  }
}

TEST_F(ForcingSearch, NineteenStepsAreShownTwentyAreNot) {
  drawthinned(std::mt19937(88), 44);
  EXPECT_TRUE(found());
  EXPECT_EQ(chainsteps, 19);
  drawthinned(std::mt19937(896), 51);
  LiteralForcing literal;
  literal.all();
  EXPECT_EQ(*std::min_element(literal.lengths.begin(), literal.lengths.end()), 20);
  EXPECT_FALSE(found());
}

TEST_F(ForcingSearch, WhereNothingCanBeSupposedTheGraderGivesUpToo) {
  put(fullboard);
  runninglevel = 3;
  frmgenerazione::gradeforcing();
  EXPECT_EQ(player.boxes, std::vector<std::string>{""});
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(levelcount(21), 0);
}

// ---- what comes in between --------------------------------------------------------------------------------

TEST_F(ForcingSearch, AnotherPuzzleOpenedDuringTheWaitIsNotTouched) {
  for (const bool explaining : {false, true}) {
    putcase("forcingchain/two-paths");
    player.frames.clear();
    Board opened;
    player.script = {[&] {
      open(without(fullboard, {at(1, 1), at(8, 7)}));
      opened = theboard();
    }};
    if (explaining) player.script.push_front(help);
    player.event(frmmain::stepforcing);
    EXPECT_TRUE(player.script.empty());
    EXPECT_EQ(theboard(), opened);
    EXPECT_EQ(candstr(at(8, 7)), "2");
    EXPECT_FALSE(waiting());
    expectnopaint();
  }
}

TEST_F(ForcingSearch, AnotherPuzzleOpenedDuringTheSearchIsNotTouched) {
  putcase("forcingchain/shortest-of-the-board");
  const std::string puzzle = hardpuzzles(1)[0];
  Board opened;
  bool once = true;
  player.onevents = [&] {
    if (!std::exchange(once, false)) return;
    open(puzzle);
    opened = theboard();
  };
  player.script = {go};
  player.event(frmmain::stepforcing);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(theboard(), opened);
  EXPECT_EQ(frmmain::txthint.text, "");
  expectnopaint();
}

TEST_F(ForcingSearch, ADigitEnteredDuringTheWaitStays) {
  putcase("forcingchain/two-paths");
  player.script = {[] { writetext1(at(8, 7), "7"); }, go};
  player.event(frmmain::stepforcing);
  EXPECT_EQ(cellvalue(at(8, 7)), 7);
  EXPECT_EQ(frmmain::Text1(at(8, 7)).text, "7");
  EXPECT_EQ(candmask(at(8, 7)), 0);
  EXPECT_EQ(candstr(at(8, 7)), "");
}

// The step writes its sentence into the log, without a snapshot of the board.
TEST_F(ForcingSearch, InALongJobTheLineOfTheStepIsNotCounted) {
  const Job job("conta");
  putcase("forcingchain/two-paths");
  EXPECT_EQ(hintof(player, frmmain::stepforcing), "FORCING CHAIN, contradiction found number 6 , r8c7");
  EXPECT_EQ(Frmlog::Text3.text, "\r\nFORCING CHAIN, contradiction found number 6 , r8c7");
  EXPECT_EQ(logcount, 0);
}

// While pencil marks are edited candstr holds whatever the user typed.
TEST_F(ForcingSearch, OddTextsInCellsAreNoTrouble) {
  for (const char* text : {"", "1", "x", "1x", "0", "00", "987", "66", "666666666666", "5555555555556",
                           "?!5678?!5678?!5678", "12345678912345678912", "è6"}) {
    putcase("forcingchain/two-paths");
    modificacandidati = true;
    writetext2(at(8, 7), "7");
    writetext2(at(8, 7), text);
    modificacandidati = false;
    ASSERT_EQ(candstr(at(8, 7)), text);
    const Board before = theboard();
    found();
    EXPECT_EQ(theboard(), before) << text;
    EXPECT_TRUE(player.boxes.empty()) << text;
  }
}

// A cell of fourteen characters, thirteen of them the same digit, which a single rules out all at once.
TEST_F(ForcingSearch, ADigitTypedManyTimesIsRuledOutManyTimes) {
  put(emptyboard);
  leave(at(1, 1), "12");
  leave(at(9, 9), "12");
  modificacandidati = true;
  writetext2(at(1, 9), "11111111111113");
  modificacandidati = false;
  for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell) = "9";
  const Board before = theboard();
  found();
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(player.boxes.empty());
}

}  // namespace
}  // namespace gradino::tests
