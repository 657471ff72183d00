// Fish: which one is found, and in which order. What is said and done there: cases/xwing, swordfish,
// jellyfish.
#include "fish.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "explain.h"
#include "gradestate.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "tables.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// Boards on which some digits have the places given, and the others all places: those make no fish.
class Fish : public Program {
 protected:
  Fish() { put(emptyboard); }
  static std::string xwing() { return logged(frmgenerazione::findxwing); }
  static std::string swordfish() { return logged(frmgenerazione::findswordfish); }
  static std::string jellyfish() { return logged(frmgenerazione::findjellyfish); }
};

TEST_F(Fish, NoneOnAnEmptyBoardAndFoundflagIsCleared) {
  for (const auto& step : {frmmain::findxwing, frmmain::findswordfish, frmmain::findjellyfish}) {
    foundflag = true;
    EXPECT_EQ(hintof(player, step), "");
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(steptag, "findjellyfish");
  for (const auto& twin :
       {frmgenerazione::findxwing, frmgenerazione::findswordfish, frmgenerazione::findjellyfish}) {
    foundflag = true;
    EXPECT_EQ(logged(twin), "");
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(runninglevel, 0);
}

TEST_F(Fish, DigitsComeBeforeDirections) {
  places(9, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(7, 3)});
  places(2, {at(3, 1), at(6, 1), at(3, 4), at(6, 4), at(3, 7), at(6, 9)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 2 in columns 14 rows 36\r\n * deleted 2 from   r3c7 ,   r6c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 9 in rows 14 columns 36\r\n * deleted 9 from   r7c3 , ");
}

TEST_F(Fish, OfOneDigitRowsComeBeforeColumnsAndLowLinesFirst) {
  places(5, {at(8, 1), at(8, 9), at(9, 1), at(9, 9), at(2, 9),  // rows 8 and 9
             at(4, 2), at(4, 4), at(6, 2), at(6, 4), at(1, 4),  // rows 4 and 6
             at(3, 5), at(7, 5), at(3, 6), at(7, 6), at(3, 8),  // columns 5 and 6
             at(7, 7)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 46 columns 24\r\n * deleted 5 from   r1c4 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 89 columns 19\r\n * deleted 5 from   r2c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in columns 56 rows 37\r\n * deleted 5 from   r3c8 ,   r7c7 , ");
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, TheFirstAndTheLastLinesAreTriedToo) {
  places(5, {at(1, 1), at(1, 9), at(9, 1), at(9, 9), at(4, 9)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 19 columns 19\r\n * deleted 5 from   r4c9 , ");
  put(emptyboard);
  places(6, {at(7, 7), at(7, 8), at(8, 8), at(8, 9), at(9, 7), at(9, 9),  //
             at(1, 1), at(1, 2), at(1, 3), at(1, 9)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 6 in rows 789 columns 789\r\n * deleted 6 from   r1c9 , ");
  put(emptyboard);
  places(7, {at(6, 6), at(6, 7), at(7, 7), at(7, 8), at(8, 8), at(8, 9), at(9, 6), at(9, 9),  //
             at(2, 1), at(2, 2), at(2, 3), at(2, 4), at(2, 6)});
  EXPECT_EQ(jellyfish(), "\r\nJELLYFISH, number 7 in rows 6789 columns 6789\r\n * deleted 7 from   r2c6 , ");
}

TEST_F(Fish, AnXWingNeedsTwoEqualStringsOfTwo) {
  places(5, {at(1, 3), at(4, 3), at(4, 6), at(7, 3), at(9, 6)});
  EXPECT_EQ(xwing(), "");
  put(emptyboard);
  take("6", row(1, {at(1, 3), at(1, 6), at(1, 8)}));
  take("6", row(4, {at(4, 3), at(4, 6), at(4, 8)}));
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, AnXWingIsUsefulByEitherCrossLine) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(8, 3), at(8, 1), at(8, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 14 columns 36\r\n * deleted 5 from   r8c3 , ");
  places(6, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(8, 6), at(8, 1), at(8, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 6 in rows 14 columns 36\r\n * deleted 6 from   r8c6 , ");
}

TEST_F(Fish, ALineWithASinglePlaceCountsForTheGreaterOnes) {
  places(4, {at(1, 2), at(4, 2), at(4, 5), at(7, 5), at(7, 8), at(9, 8), at(9, 1), at(9, 3), at(9, 7)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 4 in rows 147 columns 258\r\n * deleted 4 from   r9c8 , ");
  put(emptyboard);
  places(6, {at(1, 1), at(3, 3), at(3, 5), at(5, 5), at(5, 7), at(7, 7), at(7, 1),  //
             at(9, 1), at(9, 2), at(9, 4), at(9, 6), at(9, 8)});
  EXPECT_EQ(jellyfish(), "\r\nJELLYFISH, number 6 in rows 1357 columns 1357\r\n * deleted 6 from   r9c1 , ");
}

TEST_F(Fish, ALineWithMorePlacesThanLinesDoesNotQualify) {
  places(4, {at(1, 2), at(1, 5), at(1, 8), at(4, 2), at(4, 5), at(4, 8), at(7, 2), at(7, 5), at(7, 8),  //
             at(9, 1), at(9, 2), at(9, 3), at(9, 4)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 4 in rows 147 columns 258\r\n * deleted 4 from   r9c2 , ");
  put(emptyboard);
  take("4", row(1, {at(1, 2), at(1, 5), at(1, 8)}));
  take("4", row(4, {at(4, 2), at(4, 5), at(4, 8)}));
  take("4", row(7, {at(7, 2), at(7, 5), at(7, 8), at(7, 9)}));
  EXPECT_EQ(swordfish(), "");
}

// Rows 1 and 4 make an X-Wing; with row 7 they make a Swordfish too.
TEST_F(Fish, ASwordfishMayTakeARowThatIsPartOfAnXWing) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(7, 3), at(7, 9), at(9, 9)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 5 in rows 147 columns 369\r\n * deleted 5 from   r9c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 14 columns 36\r\n * deleted 5 from   r7c3 , ");
}

// Rows 1 and 4 lie on three columns. Row 2, where the digit has no place, does not make them a Swordfish.
TEST_F(Fish, ALineWithoutACandidateNeverQualifies) {
  take("5", row(1, {at(1, 2), at(1, 5)}));
  take("5", row(2));
  take("5", row(4, {at(4, 5), at(4, 8)}));
  EXPECT_EQ(swordfish(), "");
  take("5", row(6, {at(6, 8), at(6, 9)}));
  EXPECT_EQ(jellyfish(), "");
  EXPECT_EQ(swordfish(), "");
  put(emptyboard);
  take("5", row(2));
  take("5", row(3));
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, AFishWithNothingToDeleteIsPassedOverAndTheScanGoesOn) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6)});
  for (const auto& twin :
       {frmgenerazione::findxwing, frmgenerazione::findswordfish, frmgenerazione::findjellyfish})
    EXPECT_EQ(logged(twin), "");
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6)});
  places(6, {at(2, 3), at(2, 6), at(3, 3), at(3, 6), at(7, 1), at(7, 8), at(8, 1), at(8, 8), at(9, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 6 in rows 78 columns 18\r\n * deleted 6 from   r9c8 , ");
}

TEST_F(Fish, WithoutAFindTheExplanationSaysNothing) {
  player.event(frmmain::findxwing);
  EXPECT_TRUE(player.frames.empty());
  player.event(Picthelp_Click);
  EXPECT_FALSE(frmactivity::visible);
}

}  // namespace
}  // namespace gradino::tests
