// XY-chains: the search, and what ends it. What is said, shown and done on a board is in tests/cases/xychain.
#include "xychains.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "chains.h"
#include "commands.h"
#include "gradestate.h"
#include "log.h"
#include "nodequeue.h"
#include "player.h"
#include "singles.h"
#include "step.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- the search -------------------------------------------------------------------------------------------

// Boards without digits, all candidates in all cells, but for what a test takes away. Nothing has a solution
// until the test gives it one, so the first cell of each pair is taken for the false one.
class XYSearch : public Program {
 protected:
  XYSearch() { put(emptyboard); }

  /// 5 is in r8c1 or in r8c9, and r8c1 sees two cells that contradict it in two steps.
  static void seed(const std::string& first = "15", const std::string& last = "25") {
    take("5", row(8, {at(8, 1), at(8, 9)}));
    leave({{at(8, 1), first}, {at(8, 9), last}});
    leave(each({at(2, 1), at(3, 1)}, "57"));
  }
};

TEST_F(XYSearch, NothingFoundNothingIsSaidOrDone) {
  frmmain::txthint.text = "as it was";
  foundflag = nishioflag = true;
  const Board before = theboard();
  player.event(Cmdtest_Click);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(steptag, "xychain");
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_FALSE(foundflag);
  foundflag = true;
  frmgenerazione::gradexychain();
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(nishioflag);
  EXPECT_EQ(chainlength, 20);
  EXPECT_EQ(stepdigit, 81);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(runninglevel, 0);
  explainxychain();
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), before);
  expectnopaint();
}

TEST_F(XYSearch, TheTestButtonRunsIt) {
  seed();
  player.script = {go};
  player.event(Cmdtest_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0].hint, "XY CHAIN, 5 , or in r2c1 , or in r3c1");
  EXPECT_EQ(candmask(at(8, 1)), bitvalue(1));
}

TEST_F(XYSearch, APairWithACellOfThreeCandidatesIsNoSeed) {
  seed();
  EXPECT_EQ(xychainfound(), "r8c1=5 r2c1=7 r3c1=5");
  put(emptyboard);
  seed("125");
  EXPECT_EQ(xychainfound(), "");
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
  put(emptyboard);
  seed("15", "125");
  EXPECT_EQ(xychainfound(), "");
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r3c1=5");
}

// 7 is in r2c6 or in r5c6.
TEST_F(XYSearch, ItDoesNotGoThroughACellOfThreeCandidates) {
  take("5", row(8, {at(8, 1), at(8, 9)}));
  take("7", column(6, {at(2, 6), at(5, 6)}));
  leave({{at(8, 1), "15"}, {at(8, 9), "25"}, {at(2, 1), "57"}, {at(2, 6), "367"}});
  leave({{at(5, 6), "79"}, {at(5, 2), "47"}, {at(9, 2), "45"}});
  EXPECT_EQ(loopfound(), "r8c1=5 r2c1=7 r2c6<>7 r5c6=7 r5c2=4 r9c2=5");
  EXPECT_EQ(xychainfound(), "");
  leave(at(2, 6), "37");
  EXPECT_EQ(xychainfound(), "r8c1=5 r2c1=7 r2c6<>7 r5c6=7 r5c2=4 r9c2=5");
}

TEST_F(XYSearch, TheSolutionOfTheFirstCellSaysWhichOneIsFalse) {
  seed();
  leave(each({at(1, 9), at(3, 9)}, "56"));
  solutiontext(at(8, 1)) = "1";
  EXPECT_EQ(xychainfound(), "r8c1=5 r2c1=7 r3c1=5");
  solutiontext(at(8, 1)) = "5";
  EXPECT_EQ(xychainfound(), "r8c9=5 r1c9=6 r3c9=5");
}

TEST_F(XYSearch, ANishioStepBeforeChangesNothing) {
  take("5", row(8, {at(8, 1), at(8, 9)}));
  leave({{at(8, 1), "15"}, {at(8, 9), "25"}});
  leave(each({at(2, 1), at(3, 1)}, "17"));
  EXPECT_EQ(xychainfound(), "");
  nishioflag = true;
  EXPECT_EQ(xychainfound(), "");
  EXPECT_EQ(loopfound(), "r8c1=1 r2c1=7 r3c1=1");
}

TEST_F(XYSearch, WhatTheUserTookAwayDuringTheWaitIsNotBroughtBack) {
  seed();
  player.script = {[] { take("5", {at(8, 1)}); }, go};
  player.event(frmmain::stepxychain);
  EXPECT_EQ(candmask(at(8, 1)), bitvalue(1));
  expectnopaint();
}

TEST_F(XYSearch, AHarderLevelStays) {
  seed();
  runninglevel = 20;
  frmgenerazione::gradexychain();
  EXPECT_EQ(runninglevel, 20);
  EXPECT_EQ(levelcount(19), 1);
}

// The explanation argues what the link tables hold, a negative hypothesis too.
class XYHypothesis : public Bilingual {};
IN_BOTH_LANGUAGES(XYHypothesis);

TEST_P(XYHypothesis, IsArguedAsItStandsInTheLinkTables) {
  put(emptyboard);
  steptag = "xychain";
  chainlength = 1;
  linkcell(0) = at(1, 1);
  linkdigit(0) = 5;
  linkflag(0) = false;
  linkcell(1) = at(1, 2);
  linkdigit(1) = 5;
  linkflag(1) = true;
  player.script = {stop};
  player.event(help);
  ASSERT_EQ(player.frames.size(), 1u);
  const std::string hypothesis = in("\r\nse r1c1 <> 5", "\r\nif r1c1 <> 5");
  EXPECT_TRUE(player.frames[0].activity.value_or("").ends_with(hypothesis));
}

}  // namespace
}  // namespace gradino::tests
