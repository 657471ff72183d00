// Loops: the search, and what starts and ends it. What is said, shown and done on a board is in
// tests/cases/loop.
#include "loops.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "chains.h"
#include "commands.h"
#include "conjugatechains.h"
#include "gradestate.h"
#include "log.h"
#include "menu.h"
#include "nodequeue.h"
#include "player.h"
#include "singles.h"
#include "step.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- what starts a search ---------------------------------------------------------------------------------

// Boards without digits, all candidates in all cells, but for what a test takes away. Nothing has a solution
// until the test gives it one, so the first cell of each pair is taken for the false one.
class LoopSearch : public Program {
 protected:
  LoopSearch() { put(emptyboard); }

  /// Two places are left for a digit in a house.
  static void pair(int digit, const std::vector<int>& house, int first, int last, const std::string& held) {
    for (int cell : house)
      if (cell != first && cell != last) take(std::to_string(digit), {cell});
    leave(first, held);
    leave(last, held);
  }

  // Pairs of a house of each kind. The first cell of each sees two cells that contradict it in two steps.
  static void rowpair() {
    pair(5, row(8), at(8, 1), at(8, 9), "125");
    leave(each({at(2, 1), at(3, 1)}, "57"));
  }
  static void blockpair() {
    pair(5, block(5), at(4, 4), at(6, 6), "125");
    leave(each({at(1, 4), at(2, 4)}, "58"));
  }
  static void columnpair(char digit = '5') {
    pair(digit - '0', column(8), at(7, 8), at(9, 8), std::string("12") + digit);
    leave(each({at(7, 4), at(7, 5)}, std::string() + digit + "9"));
  }
};

TEST_F(LoopSearch, WithoutAPairThereIsNone) {
  EXPECT_EQ(loopfound(), "");
  EXPECT_EQ(chainlength, 20);
  EXPECT_EQ(stepdigit, 81);
}

TEST_F(LoopSearch, NothingFoundNothingIsSaidOrDone) {
  frmmain::txthint.text = "as it was";
  foundflag = nishioflag = true;
  const Board before = theboard();
  player.event(frmmain::steplinks);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(steptag, "links");
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_FALSE(foundflag);
  foundflag = true;
  frmgenerazione::gradelinks();
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(nishioflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(runninglevel, 0);
  explainlinks();
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), before);
  expectnopaint();
}

TEST_F(LoopSearch, RowsComeBeforeBlocksAndBlocksBeforeColumns) {
  columnpair();
  EXPECT_EQ(loopfound(), "r7c8=5 r7c4=9 r7c5=5");
  EXPECT_EQ(stepdigit, 5);
  blockpair();
  EXPECT_EQ(loopfound(), "r4c4=5 r1c4=8 r2c4=5");
  rowpair();
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
}

TEST_F(LoopSearch, OfEqualChainsThatOfTheLowerDigitStays) {
  rowpair();
  columnpair('6');
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
  put(emptyboard);
  rowpair();
  columnpair('3');
  EXPECT_EQ(loopfound(), "r7c8=3 r7c4=9 r7c5=3");
  EXPECT_EQ(stepdigit, 3);
}

TEST_F(LoopSearch, AShorterChainTakesThePlaceOfALongerOne) {
  pair(5, row(8), at(8, 1), at(8, 9), "125");
  leave({{at(2, 1), "57"}, {at(3, 2), "67"}, {at(3, 1), "56"}});
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c2=6 r3c1=5");
  blockpair();
  EXPECT_EQ(loopfound(), "r4c4=5 r1c4=8 r2c4=5");
  EXPECT_EQ(chainlength, 2);
}

TEST_F(LoopSearch, ANodeLooksAtItsRowThenItsColumnThenItsBlock) {
  blockpair();
  leave(each({at(4, 8), at(4, 9)}, "59"));
  EXPECT_EQ(loopfound(), "r4c4=5 r4c8=9 r4c9=5");

  put(emptyboard);
  rowpair();
  leave(each({at(7, 2), at(9, 3)}, "59"));
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");

  put(emptyboard);
  columnpair();
  leave(each({at(8, 7), at(9, 9)}, "56"));
  EXPECT_EQ(loopfound(), "r7c8=5 r7c4=9 r7c5=5");
}

TEST_F(LoopSearch, FourCandidatesInAPairEndThePairNotTheDigit) {
  for (int cell : {at(8, 1), at(8, 9)}) {
    put(emptyboard);
    rowpair();
    columnpair();
    candmask(cell) |= bitvalue(6);
    rebuildcandstr();
    rebuildpositions();
    EXPECT_EQ(loopfound(), "r7c8=5 r7c4=9 r7c5=5") << cell;
  }
}

TEST_F(LoopSearch, TheSolutionOfTheFirstCellSaysWhichOneIsFalse) {
  rowpair();
  leave(each({at(1, 9), at(3, 9)}, "56"));
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
  solutiontext(at(8, 1)) = "1";
  solutiontext(at(8, 9)) = "2";
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
  solutiontext(at(8, 1)) = solutiontext(at(8, 9)) = "5";
  EXPECT_EQ(loopfound(), "r8c9=5 r1c9=6 r3c9=5");
}

TEST_F(LoopSearch, APairRunsOnceWhateverTheDigit) {
  pair(5, row(8), at(8, 1), at(8, 9), "456");
  pair(6, row(8), at(8, 1), at(8, 9), "456");
  leave(each({at(2, 1), at(3, 1)}, "67"));
  EXPECT_EQ(loopfound(), "");
  take("5", {at(8, 1)});
  EXPECT_EQ(loopfound(), "r8c1=6 r2c1=7 r3c1=6");
}

// ---- the start after a Nishio step ------------------------------------------------------------------------

class WidenedSearch : public LoopSearch {
 protected:
  WidenedSearch() { nishioflag = true; }

  /// 5 is in r8c1, which may hold these digits, or in r8c9. In column 9 two cells contradict a digit of r8c9.
  static void hold(const std::string& first, const std::string& other, const std::string& contradicting) {
    take("5", row(8, {at(8, 1), at(8, 9)}));
    leave({{at(8, 1), first}, {at(8, 9), other}});
    leave(each({at(2, 9), at(3, 9)}, contradicting));
  }
};

TEST_F(WidenedSearch, ADigitOfTheOtherCellAloneStartsThere) {
  hold("56", "578", "47");
  EXPECT_EQ(loopfound(), "r8c9=7 r2c9=4 r3c9=7");
  EXPECT_TRUE(nishioflag);
  nishioflag = false;
  EXPECT_EQ(loopfound(), "");
}

TEST_F(WidenedSearch, ADigitOfBothStartsFromTheFalseCell) {
  hold("57", "579", "47");
  EXPECT_EQ(loopfound(), "");
}

TEST_F(WidenedSearch, ButTheStartStaysInTheOtherCellOnceItIsThere) {
  hold("57", "157", "47");
  EXPECT_EQ(loopfound(), "r8c9=7 r2c9=4 r3c9=7");
}

TEST_F(WidenedSearch, TheOtherCellDoesNotStartWithThePairsOwnDigit) {
  hold("56", "157", "45");
  EXPECT_EQ(loopfound(), "");
}

TEST_F(WidenedSearch, TheFalseCellDoesNotStartWithItsSolution) {
  hold("579", "15", "47");
  leave(each({at(2, 1), at(3, 1)}, "69"));
  EXPECT_EQ(loopfound(), "r8c1=9 r2c1=6 r3c1=9");
  solutiontext(at(8, 1)) = "9";
  EXPECT_EQ(loopfound(), "");
  solutiontext(at(8, 1)) = "7";
  EXPECT_EQ(loopfound(), "r8c1=9 r2c1=6 r3c1=9");
}

// The box of a cell's pencil marks takes any sign while they are edited.
TEST_F(WidenedSearch, AnOddSignAmongTheCandidatesShowsAnEmptyBox) {
  hold("579", "15", "47");
  leave(each({at(2, 1), at(3, 1)}, "69"));
  candstr(at(8, 1)) = "5a9";
  EXPECT_EQ(loopfound(), "r8c1=9 r2c1=6 r3c1=9");
  EXPECT_EQ(player.boxes, std::vector<std::string>{""});
}

TEST_F(LoopSearch, WithoutANishioStepTheListIsTheDigitAlone) {
  putcase("loop/after-nishio");
  nishioflag = false;
  EXPECT_EQ(loopfound(), "r8c6=5 r8c1=4 r8c8<>4 r3c8=4 r2c7=5 r2c4<>5 r7c4=5");
  nishioflag = true;
  EXPECT_EQ(loopfound(), "r8c2=9 r8c8=4 r3c8<>4 r3c2=4 r2c2=9");
}

// ---- what is taken away -----------------------------------------------------------------------------------

TEST_F(LoopSearch, WhatTheUserTookAwayDuringTheWaitIsNotBroughtBack) {
  rowpair();
  player.script = {[] { take("5", {at(8, 1)}); }, go};
  player.event(frmmain::steplinks);
  EXPECT_EQ(candmask(at(8, 1)), bitvalue(1) + bitvalue(2));
  expectnopaint();
}

TEST_F(LoopSearch, AHarderLevelStays) {
  rowpair();
  runninglevel = 21;
  frmgenerazione::gradelinks();
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(levelcount(20), 1);
}

TEST_F(LoopSearch, TheMenuRunsItAndThenNishio) {
  putcase("loop/through-its-own-cell");
  player.script = {go, go};
  for (const MenuRow& row : menurows())
    if (row.control == &frmmain::mnuchain) player.event(row.action);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].tag, "links");
  EXPECT_EQ(player.frames[1].tag, "impossible");
}

TEST_F(LoopSearch, TheKeyRunsItAlone) {
  putcase("loop/through-its-own-cell");
  player.script = {go};
  for (const KeyRow& row : toolbar1rows())
    if (row.control == &frmmain::Toolbar1::chain) player.event([&] { Toolbar1_ButtonClick(row); });
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0].tag, "links");
}

}  // namespace
}  // namespace gradino::tests
