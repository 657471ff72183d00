// BUG: which cell and digit are found. What is said and done there: cases/bug.
#include "bug.h"

#include <gtest/gtest.h>

#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

class Bug : public Program {
 protected:
  Bug() { put(emptyboard); }

  std::string step() { return hintof(player, frmmain::stepbug); }
  static std::string twin() { return logged(frmgenerazione::gradebug); }
};

// r5c5 with 1, 2 and 3; around it what each test needs.

TEST_F(Bug, NoCellOfMoreThanTwoCandidatesIsNone) {
  only({{at(5, 5), "12"}, {at(5, 6), "12"}});
  foundflag = true;
  EXPECT_EQ(step(), "");
  EXPECT_EQ(steptag, "bug");
  EXPECT_FALSE(foundflag);
  foundflag = true;
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(levelcount(18), 0);
  only({});
  EXPECT_EQ(step(), "");
}

TEST_F(Bug, TwoCellsOfThreeCandidatesAreNone) {
  only({{at(5, 5), "123"}, {at(5, 6), "12"}, {at(5, 7), "123"}});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  only({{at(5, 5), "123"}, {at(5, 6), "12"}, {at(9, 9), "6789"}});
  EXPECT_EQ(step(), "");
}

TEST_F(Bug, OneCellOfFourCandidatesIsNone) {
  only({{at(5, 5), "1234"}, {at(5, 6), "12"}, {at(5, 7), "13"}});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
}

TEST_F(Bug, ThreePlacesInTheRowTheColumnOrTheBlock) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "14"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 1 in r5c5");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(1, 5), "24"}, {at(9, 5), "27"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 2 in r5c5");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(4, 4), "38"}, {at(6, 6), "39"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 3 in r5c5");
}

TEST_F(Bug, TwoOrFourPlacesDoNotQualify) {
  only({{at(5, 5), "123"},
        {at(9, 5), "15"},  // 1: two places in the column
        {at(5, 8), "24"},  // 2: three in the row
        {at(5, 9), "24"},
        {at(5, 1), "39"},  // 3: four in the row
        {at(5, 2), "39"},
        {at(5, 3), "39"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 2 in r5c5");
}

TEST_F(Bug, OfSeveralDigitsTheLastIsPlaced) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "12"}});
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(frmmain::txthint.text, "entered 2 in r5c5");
  EXPECT_EQ(frmmain::Text5.text, "2");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "12"}, {at(1, 5), "36"}, {at(2, 5), "36"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 3 in r5c5");
}

TEST_F(Bug, CellsWithOneCandidateOrNoneDoNotHinder) {
  only({{at(5, 5), "123"}, {at(5, 1), "1"}, {at(5, 9), "1"}, {at(8, 8), "7"}});
  ASSERT_EQ(candstr(at(9, 9)), "");
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(frmmain::Text1(at(5, 5)).text, "1");
}

TEST_F(Bug, WithoutADigitThatQualifiesTheStepPlacesTheStaleOne) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 8;
  player.script = {help, go, go};
  player.event(frmmain::stepbug);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[0].hint, "BUG in r5c5");
  EXPECT_EQ(player.frames[0].number, "8");
  EXPECT_TRUE(player.frames[2].activity.value_or("").ends_with(
      "\r\nBUG in r5c5\r\n"
      "if r5c5 is different from 8, the puzzle is in a BUG position\r\n"
      "we can, therefore, insert 8 in r5c5"));
  EXPECT_EQ(frmmain::txthint.text, "entered 8 in r5c5");
  EXPECT_EQ(cellvalue(at(5, 5)), 8);
  EXPECT_EQ(colourdigit, 8);
}

// The twin's is its own and 0: the cell counts as filled with nothing.
TEST_F(Bug, WithoutADigitThatQualifiesTheTwinEntersNone) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 8;
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 0 in r5c5");
  EXPECT_EQ(cellvalue(at(5, 5)), 0);
  EXPECT_EQ(candmask(at(5, 5)), 0);
  EXPECT_EQ(filledcount, 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(levelcount(18), 1);
  EXPECT_EQ(colourdigit, 8);
}

// 10 is what colours leave that found nothing. No cell can hold it; overwriting the box mends the board.
TEST_F(Bug, AStaleTenIsAFaultThatLeavesABoardToGoOnWith) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 10;
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(player.boxes,
            std::vector<std::string>{"10 in r5c5 is not a digit from 1 to 9: delete one of the two. (table "
                                     "bitvalue 0 to 9, index 10, in rebuildusedmask)"});
  EXPECT_EQ(frmmain::txthint.text, "entered 10 in r5c5");
  player.event([] { writetext1(at(5, 5), "3"); });
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(cellvalue(at(5, 5)), 3);
  EXPECT_EQ(filledcount, 1);
  EXPECT_EQ(usedmask(at(5, 1)), bitvalue(3));
}

}  // namespace
}  // namespace gradino::tests
