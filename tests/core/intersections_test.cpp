// Intersections: which one is found, and in which order. What is said and done there: cases/intersection.
#include "intersections.h"

#include <gtest/gtest.h>

#include "gradestate.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

class Intersections : public Program {
 protected:
  Intersections() { put(emptyboard); }

  /// In a house of nine cells the digit stays at some positions only.
  static void keep(int digit, const std::vector<int>& house, const std::string& positions) {
    for (int p = 0; p < 9; ++p)
      if (positions.find(static_cast<char>('0' + p)) == std::string::npos)
        take(std::to_string(digit), {house[static_cast<std::size_t>(p)]});
  }

  std::string step() { return hintof(player, frmmain::intersections); }
  /// The digit and the cells deleted, as the twin logs them: everything after " * deleted ".
  static std::string twin() {
    const std::string log = logged(frmgenerazione::intersections);
    const std::size_t detail = log.find(" * deleted ");
    return detail == std::string::npos ? "" : log.substr(detail + 11);
  }
};

TEST_F(Intersections, ThereIsNoneOnAnEmptyBoard) {
  foundflag = true;
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "intersections");
  foundflag = true;
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(levelcount(3), 0);
}

TEST_F(Intersections, ASinglePlaceIsNotLookedAt) {
  keep(4, block(1), "3");
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  keep(5, row(9), "4");
  keep(6, column(9), "4");
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
}

TEST_F(Intersections, PlacesInTwoLinesOrTwoBlocksAreNone) {
  keep(4, block(1), "04");
  keep(5, row(2), "236");
  keep(6, column(2), "058");
  EXPECT_EQ(step(), "");
}

TEST_F(Intersections, WithNothingToDeleteTheScansGoOn) {
  keep(4, block(1), "34");
  keep(4, row(2), "01");
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  keep(6, column(8), "78");
  EXPECT_EQ(step(), "INTERSECTION - in column 8 is present only on block 9");
  EXPECT_TRUE(foundflag);
}

TEST_F(Intersections, EachLineOfABlock) {
  // block 6: rows 4 to 6, columns 7 to 9
  const std::pair<const char*, const char*> expected[] = {
      {"01", "INTERSECTION - in block 6 is present only on row 4"},
      {"012", "INTERSECTION - in block 6 is present only on row 4"},
      {"35", "INTERSECTION - in block 6 is present only on row 5"},
      {"678", "INTERSECTION - in block 6 is present only on row 6"},
      {"03", "INTERSECTION - in block 6 is present only on column 7"},
      {"036", "INTERSECTION - in block 6 is present only on column 7"},
      {"147", "INTERSECTION - in block 6 is present only on column 8"},
      {"28", "INTERSECTION - in block 6 is present only on column 9"},
      {"037", ""},
      {"046", ""},
      {"23", ""},
  };
  for (const auto& [positions, hint] : expected) {
    put(emptyboard);
    keep(1, block(6), positions);
    EXPECT_EQ(step(), hint) << positions;
  }
}

TEST_F(Intersections, EachBlockOfALine) {
  const std::pair<const char*, const char*> expected[] = {
      {"02", "INTERSECTION - in row 5 is present only on block 4"},
      {"345", "INTERSECTION - in row 5 is present only on block 5"},
      {"67", "INTERSECTION - in row 5 is present only on block 6"},
      {"23", ""},
      {"56", ""},
      {"0123", ""},
  };
  for (const auto& [positions, hint] : expected) {
    put(emptyboard);
    keep(1, row(5), positions);
    EXPECT_EQ(step(), hint) << positions;
  }
  const std::pair<const char*, const char*> turned[] = {
      {"02", "INTERSECTION - in column 5 is present only on block 2"},
      {"345", "INTERSECTION - in column 5 is present only on block 5"},
      {"67", "INTERSECTION - in column 5 is present only on block 8"},
      {"23", ""},
  };
  for (const auto& [positions, hint] : turned) {
    put(emptyboard);
    keep(1, column(5), positions);
    EXPECT_EQ(step(), hint) << positions;
  }
}

TEST_F(Intersections, BlocksComeFirstThenRowsThenColumnsAndTheHouseBeforeTheDigit) {
  keep(1, column(3), "01");
  keep(2, column(2), "34");
  keep(3, row(9), "01");
  keep(4, row(1), "78");
  keep(5, block(9), "01");
  keep(6, block(8), "47");
  keep(7, block(5), "36");
  keep(8, block(5), "25");
  EXPECT_EQ(twin(), "7 from  r1c4 ,  r2c4 ,  r3c4 ,  r7c4 ,  r8c4 ,  r9c4 , ");
  EXPECT_EQ(twin(), "8 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ");
  EXPECT_EQ(twin(), "6 from  r1c5 ,  r2c5 ,  r3c5 ,  r4c5 ,  r5c5 ,  r6c5 , ");
  EXPECT_EQ(twin(), "5 from  r7c1 ,  r7c2 ,  r7c3 ,  r7c4 ,  r7c5 ,  r7c6 , ");
  EXPECT_EQ(twin(), "4 from  r2c7 ,  r2c8 ,  r2c9 ,  r3c7 ,  r3c8 ,  r3c9 , ");
  EXPECT_EQ(twin(), "3 from  r7c1 ,  r7c2 ,  r7c3 ,  r8c1 ,  r8c2 ,  r8c3 , ");
  EXPECT_EQ(twin(), "2 from  r4c1 ,  r4c3 ,  r5c1 ,  r5c3 ,  r6c1 ,  r6c3 , ");
  EXPECT_EQ(twin(), "1 from  r1c1 ,  r1c2 ,  r2c1 ,  r2c2 ,  r3c1 ,  r3c2 , ");
  EXPECT_EQ(twin(), "");
  EXPECT_EQ(levelcount(3), 8);
}

TEST_F(Intersections, OneStepIsOneIntersection) {
  keep(4, block(6), "34");
  keep(5, row(9), "01");
  EXPECT_EQ(step(), "INTERSECTION - in block 6 is present only on row 5");
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(step(), "INTERSECTION - in row 9 is present only on block 7");
  EXPECT_EQ(step(), "");
}

}  // namespace
}  // namespace gradino::tests
