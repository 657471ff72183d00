// XY-chains: what is found, shown, argued, logged and done, and what ends a search.
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

// ---- chains on boards of real puzzles ---------------------------------------------------------------------

const Said rule = {
    "XY CHAIN - LEVEL 19\r\n"
    "La catena XY è una catena di celle contenenti solo 2 candidati.\r\n"
    "Le celle che vedono l'inizio e la fine della catena NON POSSONO contenere il candidato in comune.\r\n"
    "==============================================\r\n",
    "XY CHAIN - LEVEL 19\r\n"
    "A XY-Chain is a chain of cells which each contain only 2 candidates.\r\n"
    "cell that is seen by both the start and the end of the chain CAN NOT contain the common candidate.\r\n"
    "==============================================\r\n"};

Said same(const std::string& text) {
  return {text, text};
}

// It also goes through a digit that is nowhere else in column 1. Its ends don't see each other.
const Paint shownends =
    painted({{at(4, 1), "3"}, {at(5, 4), "3"}}, "green", painted({{at(4, 4), "3"}}, "red"));
const FoundChain throughapair = {
    .name = "ThroughAPair",
    .tag = "xychain",
    .level = 19,
    .step = frmmain::stepxychain,
    .twin = frmgenerazione::gradexychain,
    .drawn = {"1   3   7   6   8   4   5   2   9 "
              "4   5   9   1   2   3   6   8   7 "
              "2   6   8   9   5   7   1   3   4 "
              "37  17  2   34  147 5   8   9   6 "
              "367 8   5   37  67  9   4   1   2 "
              "69  19  4   8   16  2   7   5   3 "
              "57  2   1   57  9   6   3   4   8 "
              "8   47  3   2   47  1   9   6   5 "
              "59  49  6   45  3   8   2   7   1 ",
              "137684529459123687268957134312475896785369412694812753521796348873241965946538271"},
    .cell = at(4, 4),
    .digit = 3,
    .twinendsnishio = false,
    .hint = {"CATENA XY 3 , o in r4c1 , o in r5c4", "XY CHAIN, 3 , or in r4c1 , or in r5c4"},
    .yellow = {at(4, 1), at(7, 1), at(7, 4), at(5, 4)},
    .candidate = shownends,
    .log = {{"CATENA XY 3 , o in r4c1 , o in r5c4", "XY CHAIN, 3 , or in r4c1 , or in r5c4"},
            {" * Se r4c4 = 3 allora", " * If r4c4 = 3 then"},
            same(" * r4c1 = 7"),
            same(" * r7c1 <> 7"),
            same(" * r7c4 = 7"),
            same(" * r5c4 = 3")},
    .lesson = {{.adds = {rule.it + "se r4c4 = 3", rule.en + "if r4c4 = 3"},
                .candidate = painted({{at(4, 4), "3"}, {at(4, 1), "3"}, {at(5, 4), "3"}}, "green")},
               {.adds = same("\r\nr4c1 = 7"),
                .candidate = painted({{at(4, 4), "3"}, {at(4, 1), "37"}, {at(5, 4), "3"}}, "green")},
               {.adds = same("\r\nr7c1 <> 7"),
                .candidate =
                    painted({{at(4, 4), "3"}, {at(4, 1), "37"}, {at(7, 1), "7"}, {at(5, 4), "3"}}, "green")},
               {.adds = same("\r\nr7c4 = 7"),
                .candidate = painted(
                    {{at(4, 4), "3"}, {at(4, 1), "37"}, {at(7, 1), "7"}, {at(7, 4), "7"}, {at(5, 4), "3"}},
                    "green")},
               {.adds = same("\r\nr5c4 = 3"),
                .candidate = painted(
                    {{at(4, 4), "3"}, {at(4, 1), "37"}, {at(7, 1), "7"}, {at(7, 4), "7"}, {at(5, 4), "3"}},
                    "green")},
               {.adds = {"\r\nperciò, 3 o in r4c1 o in r5c4\r\nPosso eliminare 3 da r4c4",
                         "\r\ntherefore, 3 or in r4c1 or in r5c4\r\nI can delete 3 from r4c4"},
                .candidate = painted({{at(4, 1), "37"}, {at(7, 1), "7"}, {at(7, 4), "7"}, {at(5, 4), "3"}},
                                     "green", painted({{at(4, 4), "3"}}, "red"))}}};

// The chain leaves r2c2 by one of its candidates and returns by the other: both ends are that cell.
const FoundChain backtothesamecell = {
    .name = "BackToTheSameCell",
    .tag = "xychain",
    .level = 19,
    .step = frmmain::stepxychain,
    .twin = frmgenerazione::gradexychain,
    .drawn = {"128  189  1268 3    4    29   68   5    7  "
              "3    89   268  29   5    7    1    46   48 "
              "4    7    5    1    6    8    2    3    9  "
              "5    6    14   249  8    129  7    19   3  "
              "18   2    3    49   7    19   468  169  5  "
              "7    148  9    6    3    5    48   12   28 "
              "12   5    124  8    9    6    3    7    24 "
              "6    3    7    5    2    4    9    8    1  "
              "9    48   248  7    1    3    5    24   6  ",
              "218349657396257148475168239561482793823971465749635812152896374637524981984713526", true},
    .cell = at(2, 4),
    .digit = 9,
    .twinendsnishio = false,
    .hint = {"CATENA XY 9 , o in r2c2 , o in r2c2", "XY CHAIN, 9 , or in r2c2 , or in r2c2"},
    .yellow = {at(2, 2), at(2, 9), at(2, 8), at(9, 8), at(9, 2)},
    .candidate = painted({{at(2, 2), "9"}}, "green", painted({{at(2, 4), "9"}}, "red")),
    .log = {{"CATENA XY 9 , o in r2c2 , o in r2c2", "XY CHAIN, 9 , or in r2c2 , or in r2c2"},
            {" * Se r2c4 = 9 allora", " * If r2c4 = 9 then"},
            same(" * r2c2 = 8"),
            same(" * r2c9 = 4"),
            same(" * r2c8 <> 4"),
            same(" * r9c8 = 4"),
            same(" * r9c2 = 8"),
            same(" * r2c2 = 9")},
    .lesson = {
        {.adds = {rule.it + "se r2c4 = 9", rule.en + "if r2c4 = 9"},
         .candidate = painted({{at(2, 4), "9"}, {at(2, 2), "9"}}, "green")},
        {.adds = same("\r\nr2c2 = 8"), .candidate = painted({{at(2, 4), "9"}, {at(2, 2), "89"}}, "green")},
        {.adds = same("\r\nr2c9 = 4"),
         .candidate = painted({{at(2, 4), "9"}, {at(2, 2), "89"}, {at(2, 9), "4"}}, "green")},
        {.adds = same("\r\nr2c8 <> 4"),
         .candidate =
             painted({{at(2, 4), "9"}, {at(2, 2), "89"}, {at(2, 9), "4"}, {at(2, 8), "4"}}, "green")},
        {.adds = same("\r\nr9c8 = 4"),
         .candidate =
             painted({{at(2, 4), "9"}, {at(2, 2), "89"}, {at(2, 9), "4"}, {at(2, 8), "4"}, {at(9, 8), "4"}},
                     "green")},
        {.adds = same("\r\nr9c2 = 8"),
         .candidate = painted({{at(2, 4), "9"},
                               {at(2, 2), "89"},
                               {at(2, 9), "4"},
                               {at(2, 8), "4"},
                               {at(9, 8), "4"},
                               {at(9, 2), "8"}},
                              "green")},
        {.adds = same("\r\nr2c2 = 9"),
         .candidate = painted({{at(2, 4), "9"},
                               {at(2, 2), "89"},
                               {at(2, 9), "4"},
                               {at(2, 8), "4"},
                               {at(9, 8), "4"},
                               {at(9, 2), "8"}},
                              "green")},
        {.adds = {"\r\nperciò, 9 o in r2c2 o in r2c2\r\nPosso eliminare 9 da r2c4",
                  "\r\ntherefore, 9 or in r2c2 or in r2c2\r\nI can delete 9 from r2c4"},
         .candidate =
             painted({{at(2, 2), "89"}, {at(2, 9), "4"}, {at(2, 8), "4"}, {at(9, 8), "4"}, {at(9, 2), "8"}},
                     "green", painted({{at(2, 4), "9"}}, "red"))}}};

CHAINS(XYChains, &throughapair, &backtothesamecell);

// ---- the search -------------------------------------------------------------------------------------------

// Boards without digits, all candidates in all cells, but for what a test takes away. Nothing has a solution
// until the test gives it one, so the first cell of each pair is taken for the false one.
class XYSearch : public ChainBoards {
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

// What stands in the link tables is told, also a hypothesis that something is not so.
class XYHypothesis : public Bilingual {};
IN_BOTH_LANGUAGES(XYHypothesis);

TEST_P(XYHypothesis, IsToldAsItStandsInTheLinkTables) {
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
  EXPECT_EQ(player.frames[0].activity, in(rule.it + "se r1c1 <> 5", rule.en + "if r1c1 <> 5"));
}

// The start begins the chain with its own other candidate. It is painted behind the first end, so it is red.
TEST_P(XYHypothesis, StaysRedWhereTheChainBeginsInItsCell) {
  put(emptyboard);
  take("5", row(8, {at(8, 1), at(8, 9)}));
  take("2", column(1, {at(3, 1), at(8, 1)}));
  leave({{at(8, 1), "25"}, {at(8, 9), "59"}, {at(3, 1), "27"}, {at(3, 2), "26"}, {at(9, 2), "56"}});
  solutiontext(at(3, 1)) = "2";
  player.script = {go};
  player.event(frmmain::stepxychain);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(linksread(), "r8c1=5 r8c1<>2 r3c1=2 r3c2=6 r9c2=5");
  EXPECT_EQ(player.frames[0].hint,
            in("CATENA XY 5 , o in r8c1 , o in r9c2", "XY CHAIN, 5 , or in r8c1 , or in r9c2"));
  EXPECT_EQ(player.frames[0].candidate,
            painted({{at(8, 1), "5"}}, "red", painted({{at(9, 2), "5"}}, "green")));
  EXPECT_EQ(player.frames[0].Text2, boxes({at(3, 1), at(3, 2), at(9, 2)}, "yellow"));
  expectnopaint();
}

}  // namespace
}  // namespace gradino::tests
