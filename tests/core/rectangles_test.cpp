// Unique rectangles: which one is found, and in which order. What is said and done there: cases/rectangle.
#include "rectangles.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

/// An empty board has all candidates; each test takes away what it needs, so that nothing simpler is left.
class Rectangles : public Program {
 protected:
  Rectangles() { put(emptyboard); }

  /// The four corners of r1, r2 and c1, c4.
  static void corners(const std::string& r1c1, const std::string& r1c4, const std::string& r2c1,
                      const std::string& r2c4) {
    leave(at(1, 1), r1c1);
    leave(at(1, 4), r1c4);
    leave(at(2, 1), r2c1);
    leave(at(2, 4), r2c4);
  }

  std::string step() { return hintof(player, frmmain::stepur); }
  static std::string twin() { return logged(frmgenerazione::gradeur); }
};

bool sharehouse(int a, int b) {
  return cellrow(a) == cellrow(b) || cellcol(a) == cellcol(b) || cellblock(a) == cellblock(b);
}

TEST_F(Rectangles, ThereIsNoneOnAnEmptyBoard) {
  foundflag = true;
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "ur");
  foundflag = true;
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(levelcount(17), 0);
}

TEST_F(Rectangles, OnlyTheFirstFitOnALineIsTried) {
  // r1c1 r1c7 r2c1 r2c7 would be one, but r1c4 and r2c5 come first and have no fourth corner.
  leave(at(1, 1), "12");
  leave(at(2, 1), "12");
  leave(at(1, 7), "123");
  leave(at(2, 7), "123");
  leave(at(1, 4), "124");
  leave(at(2, 5), "124");
  take("1", {at(2, 4)});
  take("2", {at(1, 5)});
  take("3", {at(3, 7), at(3, 8), at(3, 9), at(1, 8), at(1, 9)});
  const Board before = theboard();
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_EQ(theboard(), before);
  take("1", {at(1, 4)});  // now it does not fit
  EXPECT_EQ(step(), "UNIQUE RECTANGLE Type 2 in r1c1, r1c7, r2c1, r2c7");
}

TEST_F(Rectangles, AFitHasBothDigitsAndAtMostThreeCandidates) {
  corners("12", "12", "12", "1234");
  leave(at(1, 4), "13");
  EXPECT_EQ(step(), "");
  put(emptyboard);
  corners("12", "12", "12", "1234");
  take("2", {at(2, 4)});
  EXPECT_EQ(step(), "");
  // Four candidates in r1c4: it is passed over for r1c7.
  put(emptyboard);
  corners("12", "1234", "12", "1234");
  EXPECT_EQ(step(), "");
  leave(at(1, 7), "12");
  leave(at(2, 7), "1234");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r1c1, r1c7, r2c1, r2c7");
}

TEST_F(Rectangles, TwoCornersStandInTheBlockOfTheFirst) {
  // Four blocks: no rectangle.
  for (int cell : {at(1, 1), at(1, 4), at(4, 1)}) leave(cell, "12");
  leave(at(4, 4), "123");
  EXPECT_EQ(step(), "");
  // One block: no rectangle.
  put(emptyboard);
  for (int cell : {at(1, 1), at(1, 2), at(2, 1)}) leave(cell, "12");
  leave(at(2, 2), "123");
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, TheSearchStartsFromTheFirstBivalueCorner) {
  corners("123", "12", "12", "12");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r2c4, r2c1, r1c4, r1c1");
  EXPECT_EQ(frmmain::txthint.text, "inserting 3 in r1c1");
}

TEST_F(Rectangles, FourEqualCornersLeaveTheLastWithoutCandidates) {
  corners("12", "12", "12", "12");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4");
  EXPECT_EQ(frmmain::txthint.text, "deleting 12 from r2c4");
  EXPECT_EQ(candmask(at(2, 4)), 0);
  EXPECT_EQ(candstr(at(2, 4)), "");
  EXPECT_EQ(visiblemarks(at(2, 4)), "");
  EXPECT_EQ(cellvalue(at(2, 4)), 0);
  EXPECT_EQ(candstr(at(2, 1)), "12");
}

TEST_F(Rectangles, Type1LetsCornerFourHaveAnyNumberOfCandidates) {
  corners("12", "12", "12", "123456789");
  EXPECT_EQ(twin(), "\r\nUNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4\r\n * deleting 12 from r2c4");
  EXPECT_EQ(candstr(at(2, 4)), "3456789");
}

TEST_F(Rectangles, Type2NeedsThreeCandidatesInCornerFour) {
  corners("12", "123", "12", "1234");
  EXPECT_EQ(step(), "");
  put(emptyboard);
  corners("12", "12", "123", "1234");
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, OtherThirdDigitsFailAndTheScanGoesOn) {
  corners("12", "123", "12", "124");
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(twin(), "");
  put(emptyboard);
  corners("12", "12", "123", "124");
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  for (int cell : {at(7, 1), at(7, 9), at(8, 1)}) leave(cell, "56");
  leave(at(8, 9), "567");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r7c1, r7c9, r8c1, r8c9");
}

TEST_F(Rectangles, Type2WithNothingToDeleteIsPassedOver) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  put(emptyboard);
  corners("12", "123", "12", "123");
  for (int cell = 0; cell < cellcount; ++cell)
    if (sharehouse(cell, at(1, 4)) && sharehouse(cell, at(2, 4)) && cell != at(1, 4) && cell != at(2, 4))
      take("3", {cell});
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, TheDiagonalPatternGivesNothing) {
  corners("12", "123", "123", "12");
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_TRUE(player.boxes.empty());
}

// Opposite corners share no house. Were it otherwise, the step would do nothing and the twin say so.
TEST_F(Rectangles, TheDiagonalPatternWithCellsToDeleteOnlyTellsTheGrader) {
  corners("12", "123", "123", "12");
  for (int cell : {at(8, 1), at(8, 9), at(9, 1)}) leave(cell, "56");  // a rectangle that is not reached
  leave(at(9, 9), "567");
  cellblock(at(2, 1)) = 2;  // the tables bent so that corners 2 and 3 share block 2
  const Board before = theboard();
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(twin(), "");
  EXPECT_EQ(player.boxes, std::vector<std::string>{"emter code"});
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(levelcount(17), 0);
  EXPECT_EQ(theboard(), before);
}

// Where corners 3 and 4 have the third digit, a column that they shared would be walked by their block's
// number. They share a row, so only bent tables show it.
TEST_F(Rectangles, TheColumnOfCornersThreeAndFourIsTheWrongOne) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)});
  take("3", {at(1, 2), at(7, 2), at(8, 2), at(9, 2)});
  cellcol(at(2, 4)) = 1;
  twin();
  EXPECT_TRUE(foundflag);
  for (int row : {3, 4, 5, 6}) EXPECT_FALSE(hascandidate(at(row, 2), 3)) << row;
  for (int row : {3, 4, 5, 6}) EXPECT_TRUE(hascandidate(at(row, 1), 3)) << row;
  for (int row : {3, 4, 5, 6}) EXPECT_TRUE(hascandidate(at(row, 4), 3)) << row;
}

TEST_F(Rectangles, ElevenCellsFitAndTheTwelfthIsAFault) {
  // Column 4 has seven more places of the 3, block 2 has seven: r3c4 counts twice.
  const auto setup = [&](const std::vector<int>& without3) {
    put(emptyboard);
    corners("12", "123", "12", "123");
    take("3", without3);
  };
  setup({at(8, 4), at(9, 4)});
  Board before = theboard();
  player.event(frmgenerazione::gradeur);
  EXPECT_EQ(
      player.boxes,
      std::vector<std::string>{
          "The unique rectangle finds more than 11 deletions here, more than can be noted. The command was "
          "ended and the board stays as it was: another technique may go on. (table commoncell 0 to 10, "
          "index 11, in collect)"});
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(theboard(), before);
  player.event(frmmain::stepur);
  EXPECT_EQ(player.boxes.size(), 2u);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(theboard(), before);
  expectnopaint();

  setup({at(7, 4), at(8, 4), at(9, 4)});
  EXPECT_EQ(step(), "UNIQUE RECTANGLE Type 2 in r1c1, r1c4, r2c1, r2c4");
  EXPECT_EQ(player.boxes.size(), 2u);
  for (int cell :
       {at(3, 4), at(4, 4), at(5, 4), at(6, 4), at(1, 5), at(1, 6), at(2, 5), at(2, 6), at(3, 5), at(3, 6)})
    EXPECT_FALSE(hascandidate(cell, 3)) << cell;
}

TEST_F(Rectangles, TheTwinDoesNotPlaceTheLastCandidate) {
  corners("12", "12", "12", "123");
  twin();
  EXPECT_EQ(candstr(at(2, 4)), "3");
  EXPECT_EQ(cellvalue(at(2, 4)), 0);
  EXPECT_EQ(filledcount, 0);
}

// Only a step of type 2 counts in the grade.
TEST_F(Rectangles, AStepNeverLowersTheLevel) {
  putcase("rectangle/type-2-row");
  runninglevel = 21;
  step();
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(levelcount(17), 1);
}

// The help picture can be clicked again while the explanation waits. The inner explanation takes the pair
// away, the outer one exchanges it back, and the step takes it away again: it ends as if asked once.
TEST_F(Rectangles, AnExplanationInsideAnExplanationEndsTheSame) {
  for (const char* name :
       {"rectangle/type-1", "rectangle/type-1-single", "rectangle/type-2-column", "rectangle/type-2-row"}) {
    putcase(name);
    player.frames.clear();
    player.script = {help, go, go, go};
    player.event(frmmain::stepur);
    const std::size_t waits = 3 - player.script.size();
    const Board after = theboard();
    const std::string done = frmmain::txthint.text;

    putcase(name);
    player.script = {help, help};
    player.script.insert(player.script.end(), waits + 1, go);
    player.event(frmmain::stepur);
    EXPECT_TRUE(player.script.empty());
    EXPECT_EQ(theboard(), after);
    EXPECT_EQ(frmmain::txthint.text, done);
  }
}

TEST_F(Rectangles, TheExplanationPaintsTheRedCellsItself) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6)});
  player.script = {help,
                   [] {
                     clearcolours();
                     go();
                   },
                   go};
  player.event(frmmain::stepur);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[2].Text2, (Paint{{at(2, 7), "red"}, {at(2, 8), "red"}, {at(2, 9), "red"}}));
}

TEST_F(Rectangles, HelpAfterACommandThatFoundNothingShowsNothing) {
  player.event(frmmain::stepur);
  player.event(explainur);
  EXPECT_FALSE(frmactivity::visible);
  expectnopaint();
}

}  // namespace
}  // namespace gradino::tests
