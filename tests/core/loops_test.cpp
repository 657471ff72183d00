// Loops: what is found, shown, argued, logged and done, and what ends a search.
#include "loops.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

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

// ---- loops on boards of real puzzles ----------------------------------------------------------------------

const Said rule = {
    "LOOPS - LIVELLO 19\r\n"
    "Si deve trovare una cella nella quale ipotizzando un particolare candidato si ottiene, attraverso una catena "
    "di conseguenze, alla negazione della ipotesi fatta\r\n"
    "==============================================\r\n",
    "LOOPS - LEVEL 19\r\n"
    "We must find a chain that, based on an  hypothesis brings to the opposite of the hypothesis itself\r\n"
    "==============================================\r\n"};

Said same(const std::string& text) {
  return {text, text};
}

// The chain begins with another candidate of the start cell, whose box stays white.
const FoundChain throughitsowncell = {
    .name = "ThroughItsOwnCell",
    .tag = "links",
    .level = 20,
    .step = frmmain::steplinks,
    .twin = frmgenerazione::gradelinks,
    .drawn = {"4   5   7   2   1   3   6   8   9 "
              "6   1   2   4   8   9   3   5   7 "
              "3   8   9   5   6   7   1   2   4 "
              "1   4   6   7   9   2   5   3   8 "
              "7   3   8   1   5   4   2   9   6 "
              "2   9   5   68  3   68  4   7   1 "
              "58  2   1   9   47  568 78  46  3 "
              "58  67  3   68  47  15  9   146 2 "
              "9   67  4   3   2   168 78  16  5 ",
              "457213689612489357389567124146792538738154296295638471821945763563871942974326815"},
    .cell = at(7, 6),
    .digit = 6,
    .twinendsnishio = true,
    .hint = {"LOOP, trovata contradizione, numero 6 , r7c6", "LOOP, contradiction found number 6 , r7c6"},
    .yellow = {at(7, 1), at(8, 1), at(8, 4)},
    .candidate = painted({{at(7, 6), "6"}}, "red"),
    .log = {{"LOOP, trovata contradizione, r7c6", "LOOP, contradiction found, r7c6"},
            {" * Se r7c6=6 allora", " * If r7c6=6 then"},
            same(" * r7c6 <> 5"),
            same(" * r7c1 = 5"),
            same(" * r8c1 = 8"),
            same(" * r8c4 = 6"),
            same(" * r7c6<>6"),
            {" * CONTRADDICE L'IPOTESI", " * CONTRADICTING THE HYPOTESHIS"},
            {" * elimino 6 da r7c6", " * deleting 6 from r7c6"}},
    .lesson = {
        {.adds = {rule.it + "se r7c6=6", rule.en + "if r7c6=6"},
         .candidate = painted({{at(7, 6), "6"}}, "green")},
        {.adds = same("\r\nr7c6 <> 5"), .candidate = painted({{at(7, 6), "56"}}, "green")},
        {.adds = same("\r\nr7c1 = 5"), .candidate = painted({{at(7, 6), "56"}, {at(7, 1), "5"}}, "green")},
        {.adds = same("\r\nr8c1 = 8"),
         .candidate = painted({{at(7, 6), "56"}, {at(7, 1), "5"}, {at(8, 1), "8"}}, "green")},
        {.adds = same("\r\nr8c4 = 6"),
         .candidate =
             painted({{at(7, 6), "56"}, {at(7, 1), "5"}, {at(8, 1), "8"}, {at(8, 4), "6"}}, "green")},
        {.adds = {"\r\nr7c6<>6\r\nCONTRADDICE L'IPOTESI\r\nquindi posso eliminare 6 da r7c6",
                  "\r\nr7c6<>6\r\nCONTRADICTING THE HYPOTESHIS\r\ntherefore, I can delete 6 from r7c6"},
         .candidate =
             painted({{at(7, 6), "56"}, {at(7, 1), "5"}, {at(8, 1), "8"}, {at(8, 4), "6"}}, "green")}}};

// It goes from digit to digit and comes through a cell with three candidates.
const FoundChain throughotherdigits = {
    .name = "ThroughOtherDigits",
    .tag = "links",
    .level = 20,
    .step = frmmain::steplinks,
    .twin = frmgenerazione::gradelinks,
    .drawn = {"1   23  4   25  59  6   8   7   39 "
              "26  5   36  27  79  8   1   4   39 "
              "7   9   8   1   4   3   2   5   6  "
              "3   1   2   8   6   5   7   9   4  "
              "5   6   7   9   1   4   3   8   2  "
              "4   8   9   3   2   7   5   6   1  "
              "9   37  35  4   357 1   6   2   8  "
              "26  27  1   567 8   9   4   3   57 "
              "8   4   356 567 357 2   9   1   57 ",
              "134256879256798143798143256312865794567914382489327561975431628621589437843672915"},
    .cell = at(7, 5),
    .digit = 5,
    .twinendsnishio = true,
    .hint = {"LOOP, trovata contradizione, numero 5 , r7c5", "LOOP, contradiction found number 5 , r7c5"},
    .yellow = {at(7, 3), at(7, 2), at(1, 2), at(1, 9), at(1, 5)},
    .candidate = painted({{at(7, 5), "5"}}, "red"),
    .log = {{"LOOP, trovata contradizione, r7c5", "LOOP, contradiction found, r7c5"},
            {" * Se r7c5=5 allora", " * If r7c5=5 then"},
            same(" * r7c3 = 3"),
            same(" * r7c2 <> 3"),
            same(" * r1c2 = 3"),
            same(" * r1c9 = 9"),
            same(" * r1c5 = 5"),
            same(" * r7c5<>5"),
            {" * CONTRADDICE L'IPOTESI", " * CONTRADICTING THE HYPOTESHIS"},
            {" * elimino 5 da r7c5", " * deleting 5 from r7c5"}},
    .lesson = {
        {.adds = {rule.it + "se r7c5=5", rule.en + "if r7c5=5"},
         .candidate = painted({{at(7, 5), "5"}}, "green")},
        {.adds = same("\r\nr7c3 = 3"), .candidate = painted({{at(7, 5), "5"}, {at(7, 3), "3"}}, "green")},
        {.adds = same("\r\nr7c2 <> 3"),
         .candidate = painted({{at(7, 5), "5"}, {at(7, 3), "3"}, {at(7, 2), "3"}}, "green")},
        {.adds = same("\r\nr1c2 = 3"),
         .candidate = painted({{at(7, 5), "5"}, {at(7, 3), "3"}, {at(7, 2), "3"}, {at(1, 2), "3"}}, "green")},
        {.adds = same("\r\nr1c9 = 9"),
         .candidate = painted(
             {{at(7, 5), "5"}, {at(7, 3), "3"}, {at(7, 2), "3"}, {at(1, 2), "3"}, {at(1, 9), "9"}}, "green")},
        {.adds = same("\r\nr1c5 = 5"),
         .candidate = painted({{at(7, 5), "5"},
                               {at(7, 3), "3"},
                               {at(7, 2), "3"},
                               {at(1, 2), "3"},
                               {at(1, 9), "9"},
                               {at(1, 5), "5"}},
                              "green")},
        {.adds = {"\r\nr7c5<>5\r\nCONTRADDICE L'IPOTESI\r\nquindi posso eliminare 5 da r7c5",
                  "\r\nr7c5<>5\r\nCONTRADICTING THE HYPOTESHIS\r\ntherefore, I can delete 5 from r7c5"},
         .candidate = painted({{at(7, 5), "5"},
                               {at(7, 3), "3"},
                               {at(7, 2), "3"},
                               {at(1, 2), "3"},
                               {at(1, 9), "9"},
                               {at(1, 5), "5"}},
                              "green")}}};

constexpr std::string_view behindnishio =
    "456  7    59   49   1    569  8    2    3 "
    "2    49   1    3459 48   3589 45   7    6 "
    "8    346  35   2    7    56   9    45   1 "
    "1    8    4    7    3    2    56   56   9 "
    "3    5    7    6    9    4    1    8    2 "
    "9    2    6    8    5    1    7    3    4 "
    "456  369  359  3459 2    7    34   1    8 "
    "45   349  8    1    6    359  2    49   7 "
    "7    1    2    349  48   389  346  69   5 ";
constexpr std::string_view behindnishiosolved =
    "475916823291348576863275941184732659357694182926851734639527418548163297712489365";

// Behind a Nishio step the pair of 4 in column 8 also lends its 9, and the shorter loop is one of 9.
const FoundChain widened = {
    .name = "Widened",
    .tag = "links",
    .level = 20,
    .step = frmmain::steplinks,
    .twin = frmgenerazione::gradelinks,
    .drawn = {behindnishio, behindnishiosolved, true},
    .cell = at(8, 2),
    .digit = 9,
    .twinendsnishio = true,
    .hint = {"LOOP, trovata contradizione, numero 9 , r8c2", "LOOP, contradiction found number 9 , r8c2"},
    .yellow = {at(8, 8), at(3, 8), at(3, 2), at(2, 2)},
    .candidate = painted({{at(8, 2), "9"}}, "red"),
    .log = {{"LOOP, trovata contradizione, r8c2", "LOOP, contradiction found, r8c2"},
            {" * Se r8c2=9 allora", " * If r8c2=9 then"},
            same(" * r8c8 = 4"),
            same(" * r3c8 <> 4"),
            same(" * r3c2 = 4"),
            same(" * r2c2 = 9"),
            same(" * r8c2<>9"),
            {" * CONTRADDICE L'IPOTESI", " * CONTRADICTING THE HYPOTESHIS"},
            {" * elimino 9 da r8c2", " * deleting 9 from r8c2"}},
    .lesson = {
        {.adds = {rule.it + "se r8c2=9", rule.en + "if r8c2=9"},
         .candidate = painted({{at(8, 2), "9"}}, "green")},
        {.adds = same("\r\nr8c8 = 4"), .candidate = painted({{at(8, 2), "9"}, {at(8, 8), "4"}}, "green")},
        {.adds = same("\r\nr3c8 <> 4"),
         .candidate = painted({{at(8, 2), "9"}, {at(8, 8), "4"}, {at(3, 8), "4"}}, "green")},
        {.adds = same("\r\nr3c2 = 4"),
         .candidate = painted({{at(8, 2), "9"}, {at(8, 8), "4"}, {at(3, 8), "4"}, {at(3, 2), "4"}}, "green")},
        {.adds = same("\r\nr2c2 = 9"),
         .candidate = painted(
             {{at(8, 2), "9"}, {at(8, 8), "4"}, {at(3, 8), "4"}, {at(3, 2), "4"}, {at(2, 2), "9"}}, "green")},
        {.adds = {"\r\nr8c2<>9\r\nCONTRADDICE L'IPOTESI\r\nquindi posso eliminare 9 da r8c2",
                  "\r\nr8c2<>9\r\nCONTRADICTING THE HYPOTESHIS\r\ntherefore, I can delete 9 from r8c2"},
         .candidate =
             painted({{at(8, 2), "9"}, {at(8, 8), "4"}, {at(3, 8), "4"}, {at(3, 2), "4"}, {at(2, 2), "9"}},
                     "green")}}};

CHAINS(Loops, &throughitsowncell, &throughotherdigits, &widened);

// ---- what starts a search ---------------------------------------------------------------------------------

// Boards without digits, all candidates in all cells, but for what a test takes away. Nothing has a solution
// until the test gives it one, so the first cell of each pair is taken for the false one.
class LoopSearch : public ChainBoards {
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

// ---- the start behind a Nishio step -----------------------------------------------------------------------

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
  draw({behindnishio, behindnishiosolved});
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
  draw(throughitsowncell.drawn);
  player.script = {go, go};
  for (const MenuRow& row : menurows())
    if (row.control == &frmmain::mnuchain) player.event(row.action);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].tag, "links");
  EXPECT_EQ(player.frames[1].tag, "impossible");
}

TEST_F(LoopSearch, TheKeyRunsItAlone) {
  draw(throughitsowncell.drawn);
  player.script = {go};
  for (const KeyRow& row : toolbar1rows())
    if (row.control == &frmmain::Toolbar1::chain) player.event([&] { Toolbar1_ButtonClick(row); });
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0].tag, "links");
}

}  // namespace
}  // namespace gradino::tests
