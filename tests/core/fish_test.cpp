// Fish: what is found, in which order, and what a step shows, deletes and leaves.
#include "fish.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "captions.h"
#include "explain.h"
#include "gradestate.h"
#include "log.h"
#include "player.h"
#include "startup.h"
#include "step.h"
#include "tables.h"

namespace gradino::tests {
namespace {

int at(int row, int col) {
  return (row - 1) * 9 + col - 1;
}

/// An empty board on which a digit has only the given places (r, c from 1); every other digit has none.
void places(int digit, const std::vector<std::pair<int, int>>& cellnames) {
  for (const auto& [row, col] : cellnames) candmask(at(row, col)) |= bitvalue(digit);
  rebuildcandstr();
  rebuildpositions();
}

std::set<int> holders(int digit) {
  std::set<int> found;
  for (int cell = 0; cell < cells; ++cell)
    if (hascandidate(cell, digit)) found.insert(cell);
  return found;
}

struct FishTest : testing::Test {
  Player player;
  FishTest() {
    player.play();
    startprogram();
  }
  void italiano() { cmdlan_Click(); }
};

const std::vector<std::pair<int, int>> xwing = {{1, 3}, {1, 6}, {4, 3}, {4, 6}, {7, 3}, {9, 6}};
// Rows 1, 4, 7 on columns 2, 5, 8; row 3 and row 9 lose the digit.
const std::vector<std::pair<int, int>> swordfish = {{1, 2}, {1, 8}, {3, 2}, {4, 2}, {4, 5}, {7, 5}, {7, 8},
                                                    {9, 8}, {3, 4}, {3, 6}, {3, 9}, {9, 1}, {9, 3}, {9, 7}};

TEST_F(FishTest, AnXWingIsShownInGreenAndDeletesInItsColumns) {
  places(5, xwing);
  player.script = {go};
  player.event(frmmain::findxwing);
  const Frame& frame = player.frames.at(0);
  EXPECT_EQ(frame.hint, "X-WING, number 5 in rows 14 columns 36");
  EXPECT_EQ(frame.number, "5");
  const Paint corners = {{at(1, 3) * 10 + 5, "green"},
                         {at(1, 6) * 10 + 5, "green"},
                         {at(4, 3) * 10 + 5, "green"},
                         {at(4, 6) * 10 + 5, "green"}};
  EXPECT_EQ(frame.candidate, corners);
  EXPECT_TRUE(frame.Text1.empty());
  EXPECT_TRUE(frame.Text2.empty());
  EXPECT_EQ(frmmain::txthint.text, "deleted 5 from   r7c3 ,   r9c6 , ");
  EXPECT_EQ(holders(5), (std::set<int>{at(1, 3), at(1, 6), at(4, 3), at(4, 6)}));
  EXPECT_TRUE(look().candidate.empty());
  EXPECT_TRUE(foundflag);
}

TEST_F(FishTest, AStopDeletesNothingAndLeavesTheFlag) {
  places(5, xwing);
  player.script = {stop};
  player.event(frmmain::findxwing);
  EXPECT_EQ(holders(5).size(), 6u);
  EXPECT_TRUE(foundflag);
  EXPECT_TRUE(look().candidate.empty());
}

TEST_F(FishTest, TheItalianLogLineOfAnXWingHasItsStrayQuote) {
  italiano();
  places(5, xwing);
  frmgenerazione::findxwing();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\nX-WING, numero 5 nelle righe 14 colonne 36\r\n *`eliminato 5 from   r7c3 ,   r9c6 , ");
  EXPECT_EQ(logcount, 2);
  EXPECT_FALSE(logvalues(1).empty());
  EXPECT_TRUE(logvalues(2).empty());
  EXPECT_EQ(runninglevel, 10);
  EXPECT_EQ(levelcount(10), 1);
}

TEST_F(FishTest, DuringALongJobOnlyTheDetailLineCounts) {
  const Job job("genera");
  places(5, xwing);
  frmgenerazione::findxwing();
  EXPECT_EQ(logcount, 1);
  EXPECT_TRUE(logvalues(1).empty());
}

TEST_F(FishTest, AnXWingIsArguedInTwoStages) {
  places(5, xwing);
  player.script = {help, go, go};
  steptag = "findxwing";
  player.event(frmmain::findxwing);
  ASSERT_EQ(player.frames.size(), 3u);
  const std::string first =
      "TECHNIQUE X-WING  LEVEL 10\r\n"
      "if we find two rows (columns) containing one candidate\r\n"
      "only in two cells and if these two cells are on two same columns (rows) \r\n"
      "then we can delete the candidate from the other cells of the 2 columns (rows)\r\n"
      "===================================================\r\n"
      "in our case:\r\n"
      "in row 1 the number 5 is present only in r1c3 and r1c6\r\n"
      "therefore 5 or in blue cell or in green cell of row 1\r\n"
      "in row 4 the number 5 is present only in r4c3 and r4c6\r\n"
      "therefore 5 or in blue cell or in green cell of row 4\r\n"
      "we don't know which cell of the two rows contain the number 5\r\n"
      "but surely the number 5 is or in blue cells or in the green ones";
  EXPECT_EQ(player.frames[1].activity, first);
  const Paint corners = {{at(1, 3) * 10 + 5, "green"},
                         {at(1, 6) * 10 + 5, "cyan"},
                         {at(4, 3) * 10 + 5, "cyan"},
                         {at(4, 6) * 10 + 5, "green"}};
  EXPECT_EQ(player.frames[1].candidate, corners);
  EXPECT_EQ(
      player.frames[2].activity,
      first +
          "\r\nThen we can delete 5 from the red cells of columns 3 and 6\r\nin our case from r7c3, r9c6, ");
  EXPECT_EQ(player.frames[2].candidate.at(at(7, 3) * 10 + 5), "red");
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_TRUE(look().candidate.empty());
}

TEST_F(FishTest, AStopAtTheSecondStageLeavesWindowAndRedCells) {
  places(5, xwing);
  player.script = {help, go, stop};
  player.event(frmmain::findxwing);
  EXPECT_TRUE(frmactivity::visible);
  const Paint reds = {{at(7, 3) * 10 + 5, "red"}, {at(9, 6) * 10 + 5, "red"}};
  EXPECT_EQ(look().candidate, reds);
  EXPECT_EQ(holders(5).size(), 6u);
}

TEST_F(FishTest, ASwordfishShowsWhereItsDigitIsAndWhereItGoes) {
  places(4, swordfish);
  player.script = {go};
  player.event(frmmain::findswordfish);
  const Frame& frame = player.frames.at(0);
  EXPECT_EQ(frame.hint, "SWORDFISH, number 4 in rows 147 columns 285");
  const Paint shown = {{at(1, 2) * 10 + 4, "green"}, {at(1, 8) * 10 + 4, "green"},
                       {at(3, 2) * 10 + 4, "red"},   {at(4, 2) * 10 + 4, "green"},
                       {at(4, 5) * 10 + 4, "green"}, {at(7, 5) * 10 + 4, "green"},
                       {at(7, 8) * 10 + 4, "green"}, {at(9, 8) * 10 + 4, "red"}};
  EXPECT_EQ(frame.candidate, shown);
  EXPECT_EQ(frmmain::txthint.text, "deleted 4 from   r3c2 ,   r9c8 , ");
}

TEST_F(FishTest, ALineWithASinglePlaceCountsForASwordfish) {
  places(4, {{1, 2}, {4, 2}, {4, 5}, {7, 5}, {7, 8}, {9, 8}, {9, 1}, {9, 3}, {9, 7}});
  frmgenerazione::findswordfish();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\nSWORDFISH, number 4 in rows 147 columns 258\r\n * deleted 4 from   r9c8 , ");
  EXPECT_EQ(runninglevel, 11);
}

TEST_F(FishTest, AnXWingNeedsTwoEqualStringsOfTwo) {
  places(5, {{1, 3}, {4, 3}, {4, 6}, {7, 3}, {9, 6}});
  frmgenerazione::findxwing();
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(Frmlog::Text3.text, "");
}

TEST_F(FishTest, DigitsComeBeforeDirections) {
  places(9, xwing);
  places(2, {{3, 1}, {6, 1}, {3, 4}, {6, 4}, {3, 7}, {6, 9}});  // columns 1 and 4 on rows 3 and 6
  frmgenerazione::findxwing();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\nX-WING, number 2 in columns 14 rows 36\r\n * deleted 2 from   r3c7 ,   r6c9 , ");
}

TEST_F(FishTest, AFishWithNothingToDeleteIsPassedOver) {
  places(5, {{1, 3}, {1, 6}, {4, 3}, {4, 6}});
  frmgenerazione::findxwing();
  frmgenerazione::findswordfish();
  frmgenerazione::findjellyfish();
  EXPECT_EQ(Frmlog::Text3.text, "");
}

TEST_F(FishTest, JellyfishNamesRowsWhereColumnsAreMeant) {
  places(6, {{1, 1},
             {1, 3},
             {3, 3},
             {3, 5},
             {5, 5},
             {5, 7},
             {7, 7},
             {7, 1},
             {9, 1},
             {9, 2},
             {9, 4},
             {9, 6},
             {9, 8}});
  player.script = {help, go, go};
  player.event(frmmain::findjellyfish);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[0].hint, "JELLYFISH, number 6 in rows 1357 columns 1357");
  EXPECT_TRUE(player.frames[2].activity->ends_with(
      "\r\nThen we can delete 6 from the red cells of rows 1 and 3 and 5 and 7\r\n in our case from r9c1, "))
      << *player.frames[2].activity;
}

TEST_F(FishTest, WithoutAFindTheExplanationSaysNothing) {
  player.event(frmmain::findxwing);
  EXPECT_TRUE(player.frames.empty());
  player.event(Picthelp_Click);
  EXPECT_FALSE(frmactivity::visible);
}

}  // namespace
}  // namespace gradino::tests
