// Nishio: what is found, shown, argued, logged and done, what ends a trial, and what comes in between.
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

#include "chains.h"
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

// ---- examples ---------------------------------------------------------------------------------------------

/// A board on which Nishio is the next step, of the ladder or of the menu entry for chains.
struct FoundNishio {
  std::string name;
  Drawn drawn;
  bool ladder;
  int cell, digit;  ///< what the step takes away
  Said hint;
  std::vector<std::pair<int, int>> placings;  ///< cells and digits of the trial
  std::vector<Said> log;
  std::vector<Said> lesson;  ///< what each wait of the explanation adds
};

Said same(const std::string& text) {
  return {text, text};
}

const std::string nishiotitleit =
    "TECNICA NISHIO  LIVELLO 21\r\n"
    "si deve trovare una catena di conseguenze\r\n"
    "che porti ad una contradizione: un numero\r\n"
    "non e' piu' possibile in in gruppo oppure\r\n"
    "e' contenuto piu' di una volta\r\n"
    "===================================================\r\n";
const std::string nishiotitleen =
    "TECHNIQUE NISHIO  LEVEL 21\r\n"
    "a chain of consequences that brings to a contradiction\r\n"
    "a number is not any more possible in a house \r\n"
    "or in an empty cell NO CANDIDATE is any more possible\r\n"
    "===================================================\r\n";

// A digit has no place left in a row.
constexpr Drawn rowlostboard = {
    "156 2 3 7 689 1689 4 568 68 "
    "1567 1678 9 1268 4 168 2356 5678 3678 "
    "678 4 78 26 3 5 2679 6789 1 "
    "2 3 17 146 679 14679 8 1679 5 "
    "4 5789 1578 3 6789 16789 1679 2 679 "
    "78 789 6 5 2 1789 179 3 4 "
    "1678 1678 2 468 5 3 1679 146789 6789 "
    "3 5678 578 9 1 4678 567 45678 2 "
    "9 15678 4 68 678 2 35 15678 3678",
    "123796458579148263648235971231467895495381627786529134812653749367914582954872316"};

const FoundNishio rowlost = {
    .name = "Rowlost",
    .drawn = rowlostboard,
    .ladder = true,
    .cell = at(8, 2),
    .digit = 5,
    .hint = {"CATENA NISHIO - Se r8c2=5", "NISHIO CHAIN - If r8c2=5"},
    .placings = {{at(5, 3), 5},
                 {at(4, 3), 1},
                 {at(2, 4), 1},
                 {at(1, 1), 1},
                 {at(2, 1), 5},
                 {at(3, 4), 2},
                 {at(2, 7), 2},
                 {at(2, 9), 3},
                 {at(1, 8), 5},
                 {at(9, 7), 3}},
    .log = {{"CATENA NISHIO - Se r8c2=5", "NISHIO CHAIN - If r8c2=5"},
            same(" * r5c3=5"),
            same(" * r4c3=1"),
            same(" * r2c4=1"),
            same(" * r1c1=1"),
            same(" * r2c1=5"),
            same(" * r3c4=2"),
            same(" * r2c7=2"),
            same(" * r2c9=3"),
            same(" * r1c8=5"),
            same(" * r9c7=3"),
            same(" * 5 no more possible in row 8"),
            same(" * IMPOSSIBLE")},
    .lesson =
        {
            {nishiotitleit + "Se r8c2=5", nishiotitleen + "If r8c2=5"},
            same("\r\nr5c3=5"),
            same("\r\nr4c3=1"),
            same("\r\nr2c4=1"),
            same("\r\nr1c1=1"),
            same("\r\nr2c1=5"),
            same("\r\nr3c4=2"),
            same("\r\nr2c7=2"),
            same("\r\nr2c9=3"),
            same("\r\nr1c8=5"),
            same("\r\nr9c7=3"),
            {"\r\n5 non piu' possibile in riga 9", "\r\n5 no more possible in row 9"},
            {"\r\n rimosso 5 da r8c2", "\r\n removed 5 from r8c2"},
        },
};

// In a column.
constexpr Drawn columnlostboard = {
    "156 2 3 7 689 1689 4 568 68 "
    "1567 1678 9 1268 4 168 2356 5678 3678 "
    "678 4 78 26 3 5 2679 6789 1 "
    "2 3 17 146 679 14679 8 1679 5 "
    "4 5789 1578 3 6789 16789 1679 2 679 "
    "78 789 6 5 2 1789 179 3 4 "
    "1678 1678 2 468 5 3 1679 146789 6789 "
    "3 678 578 9 1 4678 567 45678 2 "
    "9 15678 4 68 678 2 35 15678 3678",
    "123796458579148263648235971231467895495381627786529134812653749367914582954872316"};

const FoundNishio columnlost = {
    .name = "Columnlost",
    .drawn = columnlostboard,
    .ladder = true,
    .cell = at(8, 8),
    .digit = 5,
    .hint = {"CATENA NISHIO - Se r8c8=5", "NISHIO CHAIN - If r8c8=5"},
    .placings = {{at(2, 7), 5},
                 {at(1, 1), 5},
                 {at(3, 7), 2},
                 {at(2, 4), 2},
                 {at(2, 9), 3},
                 {at(3, 8), 9},
                 {at(2, 8), 7},
                 {at(9, 2), 5},
                 {at(5, 3), 5},
                 {at(4, 3), 1}},
    .log = {{"CATENA NISHIO - Se r8c8=5", "NISHIO CHAIN - If r8c8=5"},
            same(" * r2c7=5"),
            same(" * r1c1=5"),
            same(" * r3c7=2"),
            same(" * r2c4=2"),
            same(" * r2c9=3"),
            same(" * r3c8=9"),
            same(" * r2c8=7"),
            same(" * r9c2=5"),
            same(" * r5c3=5"),
            same(" * r4c3=1"),
            same(" * 1 no more possible in column 3"),
            same(" * IMPOSSIBLE")},
    .lesson =
        {
            {nishiotitleit + "Se r8c8=5", nishiotitleen + "If r8c8=5"},
            same("\r\nr2c7=5"),
            same("\r\nr1c1=5"),
            same("\r\nr3c7=2"),
            same("\r\nr2c4=2"),
            same("\r\nr2c9=3"),
            same("\r\nr3c8=9"),
            same("\r\nr2c8=7"),
            same("\r\nr9c2=5"),
            same("\r\nr5c3=5"),
            same("\r\nr4c3=1"),
            {"\r\n1 non piu' possibile in colonna 4", "\r\n1 no more possible in column 4"},
            {"\r\n rimosso 5 da r8c8", "\r\n removed 5 from r8c8"},
        },
};

// In a block. The ladder has a forcing chain here; the menu entry does not try one.
constexpr Drawn blocklostboard = {
    "29 3 28 4 257 2578 789 6 1 "
    "146 478 468 9 137 3678 78 5 2 "
    "1269 27 5 267 127 2678 3 789 4 "
    "234 6 247 23 8 1 5 479 79 "
    "8 1 247 5 24 9 47 3 6 "
    "34 5 9 37 6 47 1 2 8 "
    "246 248 3 267 9 2467 24678 1 5 "
    "5 2489 2468 1 2347 23467 246789 4789 379 "
    "7 249 1 8 2345 23456 2469 49 39",
    "932475861148936752675218394264381579817529436359764128483697215526143987791852643"};

const FoundNishio blocklost = {
    .name = "Blocklost",
    .drawn = blocklostboard,
    .ladder = false,
    .cell = at(5, 7),
    .digit = 7,
    .hint = {"CATENA NISHIO - Se r5c7=7", "NISHIO CHAIN - If r5c7=7"},
    .placings = {{at(3, 8), 7}, {at(2, 2), 7}, {at(1, 7), 9}, {at(3, 1), 9}, {at(2, 1), 1}, {at(2, 3), 4}},
    .log = {{"CATENA NISHIO - Se r5c7=7", "NISHIO CHAIN - If r5c7=7"},
            same(" * r3c8=7"),
            same(" * r2c2=7"),
            same(" * r1c7=9"),
            same(" * r3c1=9"),
            same(" * r2c1=1"),
            same(" * r2c3=4"),
            same(" * 6 no more possible in block 0"),
            same(" * IMPOSSIBLE")},
    .lesson =
        {
            {nishiotitleit + "Se r5c7=7", nishiotitleen + "If r5c7=7"},
            same("\r\nr3c8=7"),
            same("\r\nr2c2=7"),
            same("\r\nr1c7=9"),
            same("\r\nr3c1=9"),
            same("\r\nr2c1=1"),
            same("\r\nr2c3=4"),
            {"\r\n6 non piu' possibile in settore 1", "\r\n6 no more possible in block 1"},
            {"\r\n rimosso 7 da r5c7", "\r\n removed 7 from r5c7"},
        },
};

// An empty cell has no candidate left.
constexpr Drawn cellemptyboard = {
    "156 2 3 7 689 1689 4 568 68 "
    "1567 1678 9 1268 4 168 2356 5678 3678 "
    "678 4 78 26 3 5 2679 6789 1 "
    "2 3 17 146 679 14679 8 1679 5 "
    "4 5789 1578 3 6789 16789 1679 2 679 "
    "78 789 6 5 2 1789 179 3 4 "
    "1678 1678 2 468 5 3 1679 146789 6789 "
    "3 678 578 9 1 4678 567 4678 2 "
    "9 15678 4 68 678 2 35 15678 3678",
    "123796458579148263648235971231467895495381627786529134812653749367914582954872316"};

const FoundNishio cellempty = {
    .name = "Cellempty",
    .drawn = cellemptyboard,
    .ladder = true,
    .cell = at(9, 2),
    .digit = 8,
    .hint = {"CATENA NISHIO - Se r9c2=8", "NISHIO CHAIN - If r9c2=8"},
    .placings = {{at(8, 3), 5},
                 {at(5, 2), 5},
                 {at(6, 2), 9},
                 {at(9, 8), 1},
                 {at(9, 7), 5},
                 {at(9, 9), 3},
                 {at(2, 7), 3},
                 {at(3, 7), 2},
                 {at(2, 4), 2},
                 {at(3, 8), 9},
                 {at(9, 5), 7},
                 {at(9, 4), 6}},
    .log = {{"CATENA NISHIO - Se r9c2=8", "NISHIO CHAIN - If r9c2=8"},
            same(" * r8c3=5"),
            same(" * r5c2=5"),
            same(" * r6c2=9"),
            same(" * r9c8=1"),
            same(" * r9c7=5"),
            same(" * r9c9=3"),
            same(" * r2c7=3"),
            same(" * r3c7=2"),
            same(" * r2c4=2"),
            same(" * r3c8=9"),
            same(" * r9c5=7"),
            same(" * r9c4=6"),
            same(" * also r3c4=6"),
            same(" * IMPOSSIBLE")},
    .lesson =
        {
            {nishiotitleit + "Se r9c2=8", nishiotitleen + "If r9c2=8"},
            same("\r\nr8c3=5"),
            same("\r\nr5c2=5"),
            same("\r\nr6c2=9"),
            same("\r\nr9c8=1"),
            same("\r\nr9c7=5"),
            same("\r\nr9c9=3"),
            same("\r\nr2c7=3"),
            same("\r\nr3c7=2"),
            same("\r\nr2c4=2"),
            same("\r\nr3c8=9"),
            same("\r\nr9c5=7"),
            same("\r\nr9c4=6"),
            {"\r\nIMPOSSIBILE - anche r3c4=6", "\r\n IMPOSSIBLE - also r3c4=6"},
            {"\r\n rimosso 8 da r9c2", "\r\n removed 8 from r9c2"},
        },
};

// ---- each of them -----------------------------------------------------------------------------------------

class EachNishio : public ChainBoards,
                   public testing::WithParamInterface<std::tuple<const FoundNishio*, int>> {
 protected:
  EachNishio() {
    speak(std::get<int>(GetParam()));
    draw(one().drawn);
    take(std::to_string(one().digit), {one().cell});
    after = theboard();
    drawagain();
    before = theboard();
  }
  /// With the pencil marks to be seen: nothing stands in front of them.
  void drawagain() {
    draw(one().drawn);
    for (Box& box : frmmain::Text1) box.visible = !box.text.empty();
  }
  static const FoundNishio& one() { return *std::get<const FoundNishio*>(GetParam()); }
  static std::size_t waits() { return one().lesson.size(); }

  /// As its user comes to it: by the hint, or by the menu entry for chains.
  void run() {
    if (one().ladder) return player.event(mnuposition_Click);
    for (const MenuRow& row : menurows())
      if (row.control == &frmmain::mnuchain) player.event(row.action);
  }
  /// Help, go at the waits of the explanation up to the k-th, and these acts from there.
  void explained(std::size_t k, std::initializer_list<Act> acts) {
    player.script = {help};
    player.script.insert(player.script.end(), k, go);
    player.script.insert(player.script.end(), acts);
  }

  static std::vector<int> placed(std::size_t count) {
    std::vector<int> cells_;
    for (std::size_t i = 0; i < count; ++i) cells_.push_back(one().placings[i].first);
    return cells_;
  }
  static Frame shownframe() {
    return {.tag = "impossible",
            .hint = one().hint.text(),
            .number = "",
            .activity = {},
            .Text1 = {},
            .Text2 = boxes(placed(one().placings.size()), "yellow"),
            .candidate = {}};
  }
  /// At the k-th wait of the explanation, from 0.
  static Frame arguedframe(std::size_t k) {
    Frame frame = shownframe();
    std::string text;
    for (std::size_t i = 0; i <= k; ++i) text += one().lesson[i].text();
    frame.activity = text;
    const std::size_t shown = std::min(k, one().placings.size());
    frame.Text1 = boxes(placed(shown), "green");
    frame.Text2 = boxes(placed(shown), "yellow");
    return frame;
  }
  /// The board at that wait: the placings shown stand in the boxes alone. At the last one they are gone.
  Board arguedboard(std::size_t k) const {
    if (k + 1 == waits()) return after;
    Board board = before;
    for (std::size_t i = 0; i < std::min(k, one().placings.size()); ++i)
      board.text1[static_cast<std::size_t>(one().placings[i].first)] =
          static_cast<char>('0' + one().placings[i].second);
    return board;
  }
  static std::vector<std::string> loglines() {
    std::vector<std::string> lines;
    for (const Said& line : one().log) lines.push_back(line.text());
    return lines;
  }
  void expectdone() const {
    EXPECT_EQ(theboard(), after);
    expectmarks(after);
    expectnopaint();
    EXPECT_EQ(frmmain::txthint.text, one().hint.text());
    EXPECT_EQ(frmmain::Text5.text, "");
    EXPECT_TRUE(foundflag);
    EXPECT_FALSE(nishioflag);
    EXPECT_EQ(Frmlog::Text3.text, "");
  }

  Board before, after;
};

TEST_P(EachNishio, IsTheNextStepShowsItselfAndOnGoDeletes) {
  player.script = {[&] {
                     EXPECT_EQ(theboard(), before);
                     EXPECT_TRUE(foundflag);
                     EXPECT_FALSE(suppresschange);
                   },
                   go};
  run();
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], shownframe());
  expectdone();
}

TEST_P(EachNishio, AStopLeavesTheBoardWithoutColours) {
  player.script = {stop};
  run();
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  expectmarks(before);
  expectnopaint();
  EXPECT_EQ(frmmain::txthint.text, one().hint.text());
  EXPECT_TRUE(foundflag);
}

TEST_P(EachNishio, TwinLogsCountsAndDeletes) {
  foundflag = false;
  expecttwin(frmgenerazione::gradenishio, 21, loglines(), after);
  EXPECT_FALSE(logflags(1));  // the board before the step
  EXPECT_TRUE(nishioflag);
}

TEST_P(EachNishio, TwinInALongJobWritesAllItsLinesButCountsNoHeadline) {
  expecttwininajob(frmgenerazione::gradenishio, 21, loglines());
  EXPECT_EQ(theboard(), after);
}

TEST_P(EachNishio, ExplanationArguesAndItsGoCarriesTheStepOut) {
  player.script = {help};
  for (std::size_t k = 0; k < waits(); ++k)
    player.script.push_back([this, k] {
      EXPECT_EQ(theboard(), arguedboard(k)) << k;
      for (std::size_t i = 0; i < std::min(k, one().placings.size()); ++i)
        EXPECT_EQ(frmmain::Text1(one().placings[i].first).visible, k + 1 < waits()) << k << ' ' << i;
      expectmarks(k + 1 < waits() ? before : after);
      go();
    });
  run();
  ASSERT_EQ(player.frames.size(), 1 + waits());
  EXPECT_EQ(player.frames[0], shownframe());
  for (std::size_t k = 0; k < waits(); ++k) EXPECT_EQ(player.frames[1 + k], arguedframe(k)) << k;
  EXPECT_FALSE(frmactivity::visible);
  expectdone();
}

TEST_P(EachNishio, ExplanationItselfDeletesAndLeavesAWhiteBoard) {
  explained(waits(), {});
  player.script.front() = [&] {
    frmmain::Text1(77).back = magenta;
    frmmain::candidate(781).back = orange;
    help();
    EXPECT_EQ(theboard(), after);
    EXPECT_FALSE(frmactivity::visible);
    expectnopaint();
  };
  run();
  EXPECT_TRUE(player.script.empty());
}

// The board is put back as it stood when the explanation began; at the last wait the digit is gone already.
TEST_P(EachNishio, AStopAtAnyWaitOfTheExplanationPutsTheBoardBack) {
  for (std::size_t k = 0; k < waits(); ++k) {
    drawagain();
    clearcolours();
    player.frames.clear();
    explained(k, {stop});
    run();
    ASSERT_EQ(player.frames.size(), 2 + k);
    EXPECT_EQ(theboard(), k + 1 < waits() ? before : after) << k;
    Frame left = arguedframe(k);
    left.Text2 = {};  // those of the step, which ends too
    EXPECT_EQ(look(), left) << k;
    for (const auto& [cell, digit] : one().placings) EXPECT_FALSE(frmmain::Text1(cell).visible) << k;
    frmactivity::visible = false;
  }
}

TEST_P(EachNishio, AnotherPuzzleOpenedAtAnyWaitOfTheExplanationIsNotTouched) {
  const std::string puzzle = without(fullboard, {one().cell, one().placings.front().first, at(9, 9)});
  for (const bool opens : {true, false})
    for (std::size_t k = 0; k <= waits(); ++k) {
      drawagain();
      player.frames.clear();
      Board fresh;
      const Act another = [&] {
        if (opens)
          open(puzzle);
        else
          player.event(mnunew_Click);
        fresh = theboard();
      };
      if (k == waits())
        player.script = {another};  // without an explanation
      else
        explained(k, {another});
      run();
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
  const auto [shown, shownas] = one().placings.front();
  const auto [tocome, tocomeas] = one().placings.back();
  for (const auto& [cell, digit] :
       {std::pair(shown, shownas % 9 + 1), std::pair(tocome, tocomeas % 9 + 1), std::pair(at(9, 9), 7)})
    for (const Act& last : {go, stop}) {
      drawagain();
      const std::string text = std::to_string(digit);
      explained(1, {[cell = cell, &text] {
                  frmmain::Text1(cell).visible = true;
                  writetext1(cell, text);
                }});
      player.script.insert(player.script.end(), waits() - 3, go);
      player.script.insert(player.script.end(), {last, go});
      std::string wanted = before.values;
      wanted[static_cast<std::size_t>(cell)] = text[0];
      run();
      EXPECT_EQ(values(), wanted);
      EXPECT_EQ(boxtexts(), wanted);
      EXPECT_TRUE(frmmain::Text1(cell).visible);
      EXPECT_EQ(candmask(cell), 0);
    }
}

TEST_P(EachNishio, WordsThatTheUserLeftInABoxAreGivenBack) {
  const int cell = one().placings.front().first;
  frmmain::Text1(cell).text = "?";
  frmmain::Text1(cell).visible = true;
  explained(1, {[cell] { EXPECT_NE(frmmain::Text1(cell).text, "?"); }, stop});
  run();
  EXPECT_EQ(frmmain::Text1(cell).text, "?");
  EXPECT_TRUE(frmmain::Text1(cell).visible);
}

TEST_P(EachNishio, WordsThatTheUserTypesDuringTheExplanationStay) {
  const int cell = one().placings.front().first;
  explained(1, {[cell] { writetext1(cell, "?"); }, stop});
  run();
  EXPECT_EQ(frmmain::Text1(cell).text, "?");
  EXPECT_TRUE(frmmain::Text1(cell).visible);
  EXPECT_EQ(values(), before.values);
}

// Nothing keeps a search out of a wait: saving grades.
TEST_P(EachNishio, ASearchInBetweenDoesNotTouchTheTrialOnShow) {
  const FoundNishio& other = one().name == "Blocklost" ? cellempty : blocklost;
  const auto another = [&] {
    draw(other.drawn);
    frmgenerazione::gradenishio();
    EXPECT_EQ(stepcell * 10 + stepdigit, other.cell * 10 + other.digit);
    drawagain();
    Frmlog::Text3.text = "";
  };
  for (const bool explains : {true, false}) {
    drawagain();
    player.frames.clear();
    player.script = {another, go};
    if (explains) {
      player.script.push_front(help);
      player.script.insert(player.script.end(), waits() - 1, go);
    }
    run();
    EXPECT_TRUE(player.script.empty());
    ASSERT_EQ(player.frames.size(), explains ? 2 + waits() : 2);
    for (std::size_t k = 0; explains && k < waits(); ++k)
      EXPECT_EQ(player.frames[2 + k], arguedframe(k)) << k;
    expectdone();
  }
}

INSTANTIATE_TEST_SUITE_P(Nishio, EachNishio,
                         testing::Combine(testing::Values(&rowlost, &columnlost, &blocklost, &cellempty),
                                          testing::Values(english, italian)),
                         [](auto& p) {
                           return std::get<0>(p.param)->name +
                                  (std::get<1>(p.param) == english ? "English" : "Italian");
                         });

// ---- the search once more ---------------------------------------------------------------------------------

/// As literally as it can be told, on a copy of the board. It shares nothing with the search that it judges.
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

class NishioSearch : public ChainBoards {
 protected:
  /// What the twin logs; the board is put back.
  static std::string found() {
    const std::vector<int> before = masks();
    cleargrade();
    logcount = 0;
    const std::string log = logged(frmgenerazione::gradenishio);
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

  /// Each cell has its digit of the full board or the one `shift` further on; all of the latter make a full
  /// board, too. But for one cell, which has the digit before that: the only thing that can end a trial. Only
  /// at the start that second board is what counts as wrong.
  void drawtwofold(int shift, int start, int broken) {
    std::string right;
    Marks marks;
    for (int cell = 0; cell < cellcount; ++cell) {
      const int first = fullboard[static_cast<std::size_t>(cell)] - '0';
      const int second = (first - 1 + shift - (cell == broken ? 1 : 0)) % 9 + 1;
      marks.emplace_back(cell, std::to_string(first) + std::to_string(second));
      right += std::to_string(cell == start ? first : second);
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
  // An empty cell and a lost digit at once: the house is what is told.
  EXPECT_GT(all.cellandhouse, 0);
}

TEST_F(NishioSearch, IsAsTheLiteralOneInLongTrials) {
  int longer = 0;
  for (int broken = 1; broken < cellcount; broken += 2) {
    drawtwofold(2, at(1, 1), broken);
    LiteralNishio literal;
    expectasliteral(literal, std::to_string(broken));
    longer += literal.steps > 20;
  }
  EXPECT_GT(longer, 5);
  for (const FoundNishio* example : {&rowlost, &columnlost, &blocklost, &cellempty}) {
    draw(example->drawn);
    LiteralNishio literal;
    expectasliteral(literal, example->name);
  }
}

constexpr int takenatonce = 11;

TEST_F(NishioSearch, OnlyCandidatesThatTheSolutionMarksAsWrongAreTried) {
  draw(rowlost.drawn);
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
  draw(cellempty.drawn);  // thirteen steps, so all bands run; up to six candidates: bands of 2 to 7
  found();
  EXPECT_EQ(player.turns, 6);
  player.turns = 0;
  put(fullboard);
  found();
  EXPECT_EQ(player.turns, 1);
}

// ---- bounds -----------------------------------------------------------------------------------------------

TEST_F(NishioSearch, ATrialOfFortyNineStepsIsAFind) {
  drawtwofold(4, at(1, 1), at(8, 9));
  EXPECT_TRUE(found().starts_with("\r\nNISHIO CHAIN - If r1c1=5\r\n"));
  EXPECT_EQ(chainsteps, 49);
  EXPECT_EQ(hintof(player, frmmain::stepnishio), "NISHIO CHAIN - If r1c1=5");
}

TEST_F(NishioSearch, ATrialOfFiftyStepsIsNone) {
  drawtwofold(4, at(7, 1), at(8, 9));
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

// The slots of candmask above 80 are scratch paper: whatever stands there, nobody takes it for cells.
TEST_F(NishioSearch, TheScratchSlotsOfCandmaskAreReadByNobody) {
  std::vector<std::string> logs, steps;
  for (const int garbage : {0, fullmask, 2}) {
    open("....5......78..1...49....76...468..33.....2.......39..2.....6...71..9......7...1.");
    for (int slot = 81; slot <= 107; ++slot) candmask(slot) = garbage;
    Frmlog::Text3.text.clear();
    SolveSudoku();
    logs.push_back(Frmlog::Text3.text);
    draw(rowlost.drawn);
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
    draw(rowlost.drawn);
    nishioflag = before;
    EXPECT_EQ(hintof(player, frmmain::stepnishio), "NISHIO CHAIN - If r8c2=5");
    EXPECT_EQ(nishioflag, before);
  }
  draw(rowlost.drawn);
  nishioflag = false;
  frmgenerazione::gradenishio();
  EXPECT_TRUE(nishioflag);
  counthead();  // of whatever step comes next
  EXPECT_TRUE(logflags(logcount));
  clearboard();
  EXPECT_FALSE(nishioflag);
}

TEST_F(NishioSearch, ReplayBringsTheFlagBack) {
  draw(rowlost.drawn);
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

// ---- what comes in between --------------------------------------------------------------------------------

TEST_F(NishioSearch, AnotherPuzzleOpenedDuringTheSearchIsNotTouched) {
  draw(cellempty.drawn);
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

// Two digits typed into one box: the fault is told, and the trial that met it leaves nothing behind.
TEST_F(NishioSearch, AFaultInsideATrialLeavesTheBoardAsItWas) {
  draw(rowlost.drawn);
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
    draw(rowlost.drawn);
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
