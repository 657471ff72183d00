// Nishio: the search, what ends a trial, and what comes in between. What is said, shown and done on a board
// is in tests/cases/nishio.
#include "nishio.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "chainsteps.h"
#include "clearboard.h"
#include "commands.h"
#include "counter.h"
#include "filecommands.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "light.h"
#include "log.h"
#include "menu.h"
#include "player.h"
#include "replay.h"
#include "singles.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- what comes in between --------------------------------------------------------------------------------

struct Placing {
  int cell, digit;
};

/// What tests/cases/nishio argues on a board.
struct Argued {
  const char* name;
  std::size_t waits;  ///< of the explanation
  int cell;           ///< what loses a digit
  Placing first, last;
};

const Argued arguments[] = {
    {"nishio/digit-without-place-in-row", 13, at(8, 2), {at(5, 3), 5}, {at(9, 7), 3}},
    {"nishio/digit-without-place-in-column", 13, at(8, 8), {at(2, 7), 5}, {at(4, 3), 1}},
    {"nishio/digit-without-place-in-block", 9, at(5, 7), {at(3, 8), 7}, {at(2, 3), 4}},
    {"nishio/cell-without-candidate", 15, at(9, 2), {at(8, 3), 5}, {at(9, 4), 6}},
};

class EachNishio : public Program, public testing::WithParamInterface<Argued> {
 protected:
  EachNishio() { putcase(GetParam().name); }

  /// Help, go at the waits of the explanation up to the k-th, and these acts from there.
  void explained(std::size_t k, std::initializer_list<Act> acts) {
    player.script = {help};
    player.script.insert(player.script.end(), k, go);
    player.script.insert(player.script.end(), acts);
  }
};

TEST_P(EachNishio, AnotherPuzzleOpenedAtAnyWaitOfTheExplanationIsNotTouched) {
  const auto& [name, waits, cell, first, last] = GetParam();
  const std::string puzzle = without(fullboard, {cell, first.cell, at(9, 9)});
  for (const bool opens : {true, false})
    for (std::size_t k = 0; k <= waits; ++k) {
      putcase(name);
      Board fresh;
      const Act another = [&] {
        if (opens)
          open(puzzle);
        else
          player.event(mnunew_Click);
        fresh = theboard();
      };
      if (k == waits)
        player.script = {another};  // without an explanation
      else
        explained(k, {another});
      player.event(frmmain::stepnishio);
      EXPECT_TRUE(player.script.empty());
      EXPECT_EQ(theboard(), fresh) << k;
      EXPECT_EQ(values(), opens ? puzzle : emptyboard) << k;
      EXPECT_FALSE(waiting());
      EXPECT_FALSE(suppresschange);
      expectnopaint();
    }
}

// Whenever it comes in: into the cell of a placing shown already, of one to come, and into another.
TEST_P(EachNishio, ADigitEnteredDuringTheExplanationStays) {
  const auto& [name, waits, victim, first, last] = GetParam();
  for (const auto& [cell, digit] : {Placing{first.cell, first.digit % 9 + 1},
                                    Placing{last.cell, last.digit % 9 + 1}, Placing{at(9, 9), 7}})
    for (const Act& answer : {go, stop}) {
      putcase(name);
      std::string wanted = values();
      wanted[static_cast<std::size_t>(cell)] = static_cast<char>('0' + digit);
      explained(1, {[cell = cell, digit = digit] {
                  frmmain::Text1(cell).visible = true;
                  writetext1(cell, std::to_string(digit));
                }});
      player.script.insert(player.script.end(), waits - 3, go);
      player.script.insert(player.script.end(), {answer, go});
      player.event(frmmain::stepnishio);
      EXPECT_EQ(values(), wanted);
      EXPECT_EQ(boxtexts(), wanted);
      EXPECT_TRUE(frmmain::Text1(cell).visible);
      EXPECT_EQ(candmask(cell), 0);
    }
}

TEST_P(EachNishio, WordsThatTheUserLeftInABoxAreGivenBack) {
  const int cell = GetParam().first.cell;
  frmmain::Text1(cell).text = "?";
  frmmain::Text1(cell).visible = true;
  explained(1, {[cell] { EXPECT_NE(frmmain::Text1(cell).text, "?"); }, stop});
  player.event(frmmain::stepnishio);
  EXPECT_EQ(frmmain::Text1(cell).text, "?");
  EXPECT_TRUE(frmmain::Text1(cell).visible);
}

TEST_P(EachNishio, WordsThatTheUserTypesDuringTheExplanationStay) {
  const int cell = GetParam().first.cell;
  const std::string before = values();
  explained(1, {[cell] { writetext1(cell, "?"); }, stop});
  player.event(frmmain::stepnishio);
  EXPECT_EQ(frmmain::Text1(cell).text, "?");
  EXPECT_TRUE(frmmain::Text1(cell).visible);
  EXPECT_EQ(values(), before);
}

INSTANTIATE_TEST_SUITE_P(Nishio, EachNishio, testing::ValuesIn(arguments), [](auto& p) {
  std::string name = p.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '/' || c == '-'; }, '_');
  return name;
});

// ---- the search once more ---------------------------------------------------------------------------------

/// The search written as literally as possible, on a copy of the board. It shares nothing with the search
/// that it checks.
class LiteralNishio {
 public:
  int steps = 81;
  int cell = 0, digit = 0;       ///< of the best trial
  std::string log;               ///< of the best trial, in English
  std::array<int, 27> unions{};  ///< of the last check
  int cellandhouse = 0;          ///< states with an empty cell and a lost digit both

  LiteralNishio() {
    for (int c = 0; c < 81; ++c) value_[c] = cellvalue(c), mask_[c] = candmask(c);
  }

  void all() {
    int minimum = 1, maximum = 2, most = 0;
    do {
      for (int c = 0; c <= 80; ++c) {
        const std::string own = candstr(c);
        const int n = static_cast<int>(own.size());
        most = std::max(most, n);
        if (n > maximum || n <= minimum) continue;
        for (char d : own) {
          if (solutiontext(c) == std::string(1, d)) continue;
          hypothesis(c, d - '0');
          if (steps < 11) return;
        }
      }
      ++minimum, ++maximum;
    } while (maximum <= most + 1);
  }

  void hypothesis(int c, int d) {
    const auto value = value_, mask = mask_;
    lines_ = "\r\nNISHIO CHAIN - If " + name(c, d);
    place(c, d);
    int count = 0;
    bool impossible = false;
    while (!impossible) {
      const auto [at, single] = next();
      if (single == 0) break;
      place(at, single);
      ++count;
      lines_ += "\r\n * " + name(at, single);
      impossible = check(single);
    }
    value_ = value;
    mask_ = mask;
    if (!impossible || count >= steps) return;
    steps = count;
    cell = c;
    digit = d;
    log = lines_ + "\r\n * IMPOSSIBLE";
  }

 private:
  using Numbers = std::array<int, 81>;

  static std::string name(int c, int d) {
    return "r" + std::to_string(c / 9 + 1) + "c" + std::to_string(c % 9 + 1) + "=" + std::to_string(d);
  }
  /// Cells of rows 0 to 8, columns 9 to 17, blocks 18 to 26.
  static int cellof(int house, int p) {
    const int h = house % 9;
    if (house < 9) return h * 9 + p;
    if (house < 18) return p * 9 + h;
    return (h / 3 * 3 + p / 3) * 9 + h % 3 * 3 + p % 3;
  }

  void place(int c, int d) {
    value_[c] = d;
    mask_[c] = 0;
    for (int house = 0; house < 27; ++house)
      for (int p = 0; p < 9; ++p)
        if (cellof(house, p) == c)
          for (int q = 0; q < 9; ++q) mask_[cellof(house, q)] &= ~(1 << d);
  }

  /// A cell and its single, by block, row, column, cell.
  std::pair<int, int> next() const {
    for (int first : {18, 0, 9})
      for (int house = first; house < first + 9; ++house)
        for (int d = 1; d <= 9; ++d) {
          int places = 0, last = 0;
          for (int p = 0; p < 9; ++p)
            if (mask_[cellof(house, p)] >> d & 1) ++places, last = cellof(house, p);
          if (places == 1) return {last, d};
        }
    for (int c = 0; c < 81; ++c)
      for (int d = 1; d <= 9; ++d)
        if (mask_[c] == 1 << d) return {c, d};
    return {0, 0};
  }

  bool check(int lastdigit) {
    std::string end;
    for (int c = 0; c < 81; ++c)
      if (value_[c] == 0 && mask_[c] == 0) end = "\r\n * also " + name(c, lastdigit);
    std::array<int, 27> used{};
    for (int house = 0; house < 27; ++house) {
      unions[house] = 0;
      for (int p = 0; p < 9; ++p) {
        unions[house] |= mask_[cellof(house, p)];
        used[house] |= 1 << value_[cellof(house, p)];
      }
    }
    static constexpr const char* kinds[] = {"row", "column", "block"};
    for (int house = 0; house < 27; ++house)
      for (int d = 1; d <= 9; ++d)
        if (((unions[house] | used[house]) >> d & 1) == 0) {
          if (!end.empty()) ++cellandhouse;
          lines_ += "\r\n * " + std::to_string(d) + " no more possible in " + kinds[house / 9] + " " +
                    std::to_string(house % 9);
          return true;
        }
    lines_ += end;
    return !end.empty();
  }

  Numbers value_{}, mask_{};
  std::string lines_;
};

class NishioSearch : public Program {
 protected:
  /// What the twin logs; the board is put back.
  static std::string found() {
    const std::vector<int> before = masks();
    cleargrade();
    logcount = 0;
    std::string log = logged(frmgenerazione::gradenishio);
    for (int cell = 0; cell < cellcount; ++cell) candmask(cell) = before[static_cast<std::size_t>(cell)];
    rebuildcandstr();
    rebuildpositions();
    return log;
  }
  static void solution(std::string_view digits) {
    for (int cell = 0; cell < cellcount; ++cell)
      solutiontext(cell) = digits.empty() ? "" : digits.substr(static_cast<std::size_t>(cell), 1);
  }
  static void thin(std::mt19937& dice, unsigned percent) {
    for (int cell = 0; cell < cellcount; ++cell)
      for (int digit = 1; digit <= 9; ++digit)
        if (solutiontext(cell) != std::to_string(digit) && dice() % 100 < percent)
          deletecandidate(cell, digit);
    take(Marks{});
  }

  /// Each cell has two candidates: its digit of the full board and the one `shift` further on; the latter
  /// make a full board too. In the cell `broken` the second one is the digit before that, the only thing that
  /// can end a trial. The solution is the second board, except in the cell `start`.
  struct Twofold {
    int shift, start, broken;
  };
  void drawtwofold(const Twofold& drawn) {
    std::string right;
    Marks marks;
    for (int cell = 0; cell < cellcount; ++cell) {
      const int first = fullboard[static_cast<std::size_t>(cell)] - '0';
      const int second = (first - 1 + drawn.shift - (cell == drawn.broken ? 1 : 0)) % 9 + 1;
      marks.emplace_back(cell, std::to_string(first) + std::to_string(second));
      right += std::to_string(cell == drawn.start ? first : second);
    }
    put(emptyboard);
    only(marks);
    solution(right);
  }

  static void expectasliteral(LiteralNishio& literal, const std::string& which) {
    literal.all();
    const Board before = theboard();
    const bool shown = literal.steps < 50;
    EXPECT_EQ(found(), shown ? literal.log : "") << which;
    EXPECT_EQ(chainsteps, literal.steps) << which;
    if (literal.steps < 81) {
      EXPECT_EQ(stepcell * 10 + stepdigit, literal.cell * 10 + literal.digit) << which;
    }
    EXPECT_EQ(theboard(), before) << which;
  }
};

TEST_F(NishioSearch, IsAsTheLiteralOneOnThinnedBoards) {
  std::mt19937 dice(12);
  std::ifstream in(TESTDATA "/corpus/hard.txt");
  std::string puzzle;
  LiteralNishio all;
  for (int n = 0; n < 40 && std::getline(in, puzzle); ++n) {
    put(puzzle);
    conta();
    for (const unsigned percent : {0u, 10u, 15u, 20u}) {
      thin(dice, percent);
      if (percent == 20) solution("");  // then every candidate is tried
      LiteralNishio literal;
      expectasliteral(literal, puzzle + ' ' + std::to_string(percent));
      all.cellandhouse += literal.cellandhouse;
    }
  }
  // An empty cell and a lost digit at once: the house is reported.
  EXPECT_GT(all.cellandhouse, 0);
}

TEST_F(NishioSearch, IsAsTheLiteralOneInLongTrials) {
  int longer = 0;
  for (int broken = 1; broken < cellcount; broken += 2) {
    drawtwofold({.shift = 2, .start = at(1, 1), .broken = broken});
    LiteralNishio literal;
    expectasliteral(literal, std::to_string(broken));
    longer += literal.steps > 20;
  }
  EXPECT_GT(longer, 5);
  for (const Argued& argued : arguments) {
    putcase(argued.name);
    LiteralNishio literal;
    expectasliteral(literal, argued.name);
  }
}

constexpr int takenatonce = 11;

TEST_F(NishioSearch, OnlyCandidatesThatTheSolutionMarksAsWrongAreTried) {
  putcase("nishio/digit-without-place-in-row");
  EXPECT_TRUE(found().starts_with("\r\nNISHIO CHAIN - If r8c2=5\r\n"));
  solutiontext(at(8, 2)) = "5";
  const std::string other = found();
  EXPECT_TRUE(other.starts_with("\r\nNISHIO CHAIN - If ")) << other;
  EXPECT_FALSE(other.starts_with("\r\nNISHIO CHAIN - If r8c2=5\r\n"));
}

TEST_F(NishioSearch, CellsWithTwoCandidatesComeFirstAndAShortTrialEndsTheSearch) {
  std::mt19937 dice(3);
  std::ifstream in(TESTDATA "/corpus/hard.txt");
  int pairsfirst = 0, shorterlater = 0;
  std::string puzzle;
  for (int n = 0; n < 20 && std::getline(in, puzzle); ++n) {
    put(puzzle);
    conta();
    thin(dice, 15);
    found();
    if (chainsteps >= takenatonce) continue;
    const int cell = stepcell, steps = chainsteps;
    for (int other = 0; other < cellcount; ++other)
      for (char digit : candstr(other)) {
        const bool before = std::tuple(candstr(other).size(), other) < std::tuple(candstr(cell).size(), cell);
        if (other == cell || solutiontext(other) == std::string(1, digit)) continue;
        LiteralNishio literal;
        literal.hypothesis(other, digit - '0');
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

TEST_F(NishioSearch, EventsRunBehindEachBandOfCells) {
  putcase("nishio/cell-without-candidate");  // thirteen steps, so all bands run; up to six candidates: bands
                                             // of 2 to 7
  found();
  EXPECT_EQ(player.turns, 6);
  player.turns = 0;
  put(fullboard);
  found();
  EXPECT_EQ(player.turns, 1);
}

// ---- bounds -----------------------------------------------------------------------------------------------

TEST_F(NishioSearch, ATrialOfFortyNineStepsIsAFind) {
  drawtwofold({.shift = 4, .start = at(1, 1), .broken = at(8, 9)});
  EXPECT_TRUE(found().starts_with("\r\nNISHIO CHAIN - If r1c1=5\r\n"));
  EXPECT_EQ(chainsteps, 49);
  EXPECT_EQ(hintof(player, frmmain::stepnishio), "NISHIO CHAIN - If r1c1=5");
}

TEST_F(NishioSearch, ATrialOfFiftyStepsIsNone) {
  drawtwofold({.shift = 4, .start = at(7, 1), .broken = at(8, 9)});
  const Board before = theboard();
  frmmain::txthint.text = "old";
  foundflag = true;
  EXPECT_EQ(found(), "");
  EXPECT_EQ(chainsteps, 50);
  EXPECT_FALSE(foundflag);
  EXPECT_FALSE(nishioflag);
  EXPECT_EQ(runninglevel, 0);
  EXPECT_EQ(levelcount(21), 0);
  foundflag = true;
  EXPECT_EQ(hintof(player, frmmain::stepnishio), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "impossible");
  EXPECT_EQ(frmmain::txthint.text, "old");
  EXPECT_EQ(theboard(), before);
  expectnopaint();
}

TEST_F(NishioSearch, WithoutATrialThatEndsImpossibleNothingIsFound) {
  for (const std::string_view board : {std::string_view(emptyboard), fullboard}) {
    put(board);
    solution(fullboard);
    const Board before = theboard();
    EXPECT_EQ(found(), "");
    EXPECT_EQ(chainsteps, 81);
    EXPECT_EQ(hintof(player, frmmain::stepnishio), "");
    EXPECT_FALSE(suppresschange);
    EXPECT_EQ(theboard(), before);
  }
}

// The slots of candmask above 80 are work space: whatever they hold, nothing takes it for cells.
TEST_F(NishioSearch, TheScratchSlotsOfCandmaskAreReadByNobody) {
  std::vector<std::string> logs, steps;
  for (const int garbage : {0, fullmask, 2}) {
    open("....5......78..1...49....76...468..33.....2.......39..2.....6...71..9......7...1.");
    for (int slot = 81; slot <= 107; ++slot) candmask(slot) = garbage;
    Frmlog::Text3.text.clear();
    SolveSudoku();
    logs.push_back(Frmlog::Text3.text);
    putcase("nishio/digit-without-place-in-row");
    for (int slot = 81; slot <= 107; ++slot) candmask(slot) = garbage;
    steps.push_back(hintof(player, mnuposition_Click));
    clearboard();
  }
  EXPECT_FALSE(logs[0].empty());
  EXPECT_EQ(logs[0], logs[1]);
  EXPECT_EQ(logs[0], logs[2]);
  EXPECT_EQ(steps, std::vector<std::string>(3, "NISHIO CHAIN - If r8c2=5"));
}

// ---- the flag of Nishio -----------------------------------------------------------------------------------

TEST_F(NishioSearch, TheTwinSetsTheFlagAndTheStepLeavesIt) {
  for (const bool before : {false, true}) {
    putcase("nishio/digit-without-place-in-row");
    nishioflag = before;
    EXPECT_EQ(hintof(player, frmmain::stepnishio), "NISHIO CHAIN - If r8c2=5");
    EXPECT_EQ(nishioflag, before);
  }
  putcase("nishio/digit-without-place-in-row");
  nishioflag = false;
  frmgenerazione::gradenishio();
  EXPECT_TRUE(nishioflag);
  counthead();  // of whatever step comes next
  EXPECT_TRUE(logflags(logcount));
  clearboard();
  EXPECT_FALSE(nishioflag);
}

TEST_F(NishioSearch, ReplayBringsTheFlagBack) {
  putcase("nishio/digit-without-place-in-row");
  headline("before");
  frmgenerazione::gradenishio();
  headline("behind");
  const int behind = logcount;
  for (const auto& [line, flag] : {std::pair(1, false), std::pair(behind, true)}) {
    logline = line;
    player.script = {[flag = flag] { EXPECT_EQ(nishioflag, flag); }, stop};
    player.event(ritrova);
  }
}

// ---- what comes in during the search ----------------------------------------------------------------------

TEST_F(NishioSearch, AnotherPuzzleOpenedDuringTheSearchIsNotTouched) {
  putcase("nishio/cell-without-candidate");
  Board opened;
  bool once = true;
  player.onevents = [&] {
    if (!std::exchange(once, false)) return;
    open("....5......78..1...49....76...468..33.....2.......39..2.....6...71..9......7...1.");
    opened = theboard();
  };
  player.script = {go};
  player.event(frmmain::stepnishio);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(theboard(), opened);
  EXPECT_EQ(frmmain::txthint.text, "");
  expectnopaint();
}

// Two digits typed into one box: the fault is reported, and the trial that met it leaves no trace.
TEST_F(NishioSearch, AFaultInsideATrialLeavesTheBoardAsItWas) {
  putcase("nishio/digit-without-place-in-row");
  const Board healthy = theboard();
  player.event([] { writetext1(at(9, 9), "12"); });
  ASSERT_EQ(player.boxes.size(), 1u);
  const Board before = theboard();
  for (void (*routine)() : {&frmmain::stepnishio, &frmgenerazione::gradenishio}) {
    player.boxes.clear();
    player.event(routine);
    EXPECT_EQ(player.boxes,
              std::vector<std::string>{"12 in r9c9 is not a digit from 1 to 9: delete one of the two. (table "
                                       "bitvalue 0 to 9, index 12, in rebuildusedmask)"});
    EXPECT_TRUE(player.frames.empty());
    EXPECT_FALSE(suppresschange);
    EXPECT_FALSE(foundflag);
    EXPECT_EQ(theboard(), before);
    expectnopaint();
  }
  player.event([] { writetext1(at(9, 9), "8"); });
  EXPECT_EQ(values(), healthy.values.substr(0, 80) + "8");
  for (int cell = 0; cell < 80; ++cell)
    EXPECT_EQ(candmask(cell),
              healthy.candmask[static_cast<std::size_t>(cell)] &
                  ~(cellrow(cell) == 9 || cellcol(cell) == 9 || cellblock(cell) == 9 ? 256 : 0));
}

// While pencil marks are edited candstr holds whatever the user typed; the masks have its digits.
TEST_F(NishioSearch, OddTextsInCellsAreNoTrouble) {
  for (const char* text : {"", "1", "x", "1x", "0", "00", "987", "66", "666666666666", "5555555555556",
                           "?!5678?!5678?!5678", "12345678912345678912", "è6"}) {
    putcase("nishio/digit-without-place-in-row");
    modificacandidati = true;
    writetext2(at(8, 8), "7");
    writetext2(at(8, 8), text);
    modificacandidati = false;
    ASSERT_EQ(candstr(at(8, 8)), text);
    rebuildpositions();
    const Board before = theboard();
    hintof(player, frmmain::stepnishio, stop);
    for (int cell = 0; cell < cellcount; ++cell)  // as any rebuild narrows them
      EXPECT_EQ(candmask(cell), before.candmask[static_cast<std::size_t>(cell)] & ~usedmask(cell)) << text;
    EXPECT_EQ(values(), before.values) << text;
    EXPECT_EQ(boxtexts(), before.text1) << text;
    EXPECT_TRUE(player.boxes.empty()) << text;
  }
}

}  // namespace
}  // namespace gradino::tests
