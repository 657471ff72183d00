// XY-Wing and XYZ-Wing: which one is found, and in which order, on boards that are empty but for the marks of
// a few cells. What is said and done there: cases/xywing, xyzwing.
#include "wings.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "tables.h"

namespace gradino::tests {
namespace {

using Marks = std::vector<std::pair<int, std::string>>;

int maskof(const std::string& digits) {
  int mask = 0;
  for (char digit : digits) mask |= 1 << (digit - '0');
  return mask;
}

class Wings : public Bilingual {
 protected:
  /// An empty board with all candidates, but for these cells.
  void putmarks(const Marks& marks) {
    put(emptyboard);
    narrow(marks);
  }

  static void narrow(const Marks& marks) {
    for (const auto& [cell, digits] : marks) candmask(cell) = maskof(digits);
    rebuildcandstr();
    updatetext2();
    rebuildpositions();
  }

  /// The present masks, less a digit in some cells.
  static std::vector<int> maskswithout(int digit, const std::vector<int>& from) {
    std::vector<int> all = masks();
    for (int cell : from) all.at(static_cast<std::size_t>(cell)) &= ~(1 << digit);
    return all;
  }

  static Frame frame(const char* tag, const std::string& hint, const Paint& boxes, const Paint& marks) {
    Frame f;
    f.tag = tag;
    f.hint = hint;
    f.Text2 = boxes;
    f.candidate = marks;
    return f;
  }

  /// The first line that a twin logs on the present board; "" if it finds nothing.
  static std::string said(void (*twin)()) {
    foundflag = true;
    Frmlog::Text3.text.clear();
    const std::vector<int> before = masks();
    twin();
    if (!foundflag) {
      EXPECT_EQ(masks(), before);
    }
    const std::string& text = Frmlog::Text3.text;
    EXPECT_EQ(foundflag, !text.empty());
    return text.empty() ? "" : text.substr(2, text.find("\r\n", 2) - 2);
  }
};
IN_BOTH_LANGUAGES(Wings);

TEST_P(Wings, NothingFoundLeavesAllButTheTagAndTheFlag) {
  putmarks({});
  const Board before = theboard();
  frmmain::txthint.text = "old";
  for (const auto& [routine, tag] :
       {std::pair(&frmmain::findxywing, "findxywing"), std::pair(&frmmain::findxyzwing, "findxyzwing")}) {
    foundflag = true;
    player.event(routine);
    EXPECT_FALSE(foundflag);
    EXPECT_EQ(look(), frame(tag, "old", {}, {}));
    EXPECT_EQ(theboard(), before);
  }
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
  EXPECT_EQ(runninglevel, 0);
  EXPECT_EQ(logcount, 0);
}

std::string xy(int z, const std::string& where) {
  return std::string("XY-WING, ") + (lingua == italian ? "numero " : "number ") + std::to_string(z) + " in " +
         where;
}
std::string xyz(int z, const std::string& where) {
  return std::string("XYZ-WING, ") + (lingua == italian ? "numero " : "number ") + std::to_string(z) +
         " in " + where;
}

TEST_P(Wings, TheLowestPivotWinsEvenWithAHighZ) {
  putmarks({{at(1, 1), "78"},
            {at(2, 2), "79"},
            {at(1, 9), "89"},  // z = 9
            {at(6, 4), "12"},
            {at(6, 9), "13"},
            {at(9, 4), "23"}});  // z = 3
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(9, "r1c1, r2c2, r1c9"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r6c4, r6c9, r9c4"));
  EXPECT_EQ(said(frmgenerazione::findxywing), "");

  putmarks({{at(1, 1), "789"},
            {at(2, 2), "79"},
            {at(1, 9), "89"},
            {at(6, 4), "123"},
            {at(5, 5), "13"},
            {at(9, 4), "12"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(9, "r1c1, r2c2, r1c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(1, "r6c4, r5c5, r9c4"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

// All around the pivot 12 in r5c5 with z = 3, unless a line says otherwise.
TEST_P(Wings, RowBeforeColumn) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "23"}, {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r8c5"));
}

TEST_P(Wings, BlockWingsBeforeLineWings) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 1), "13"}, {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c1, r8c5"));
}

TEST_P(Wings, LineWingsWithXInWing1BeforeBlockWingsWithYInIt) {
  putmarks({{at(5, 5), "12"}, {at(5, 1), "13"}, {at(8, 5), "23"}, {at(4, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c1, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c1"));
}

TEST_P(Wings, BothWaysRoundBeforeTheNextZ) {
  putmarks({{at(5, 5), "56"},
            {at(5, 1), "16"},
            {at(8, 5), "15"},  // z = 1, the other way round, on the lines
            {at(4, 6), "59"},
            {at(5, 9), "69"}});  // z = 9, in the block
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(1, "r5c5, r5c1, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(9, "r5c5, r4c6, r5c9"));
}

TEST_P(Wings, BlockPositionsOfWing1InOrder) {
  putmarks({{at(5, 5), "12"}, {at(6, 4), "13"}, {at(4, 6), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c9"));
  // Of an XYZ-Wing the position decides, whichever of the two digits wing 1 has.
  putmarks({{at(5, 5), "123"}, {at(6, 4), "23"}, {at(4, 6), "13"}, {at(5, 9), "23"}, {at(8, 5), "13"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(3, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(3, "r5c5, r6c4, r8c5"));
}

TEST_P(Wings, XYZTriesTheDigitsOfThePivotInOrderAsZ) {
  putmarks({{at(5, 5), "479"}, {at(4, 6), "79"}, {at(5, 1), "49"}, {at(5, 9), "47"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(7, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(9, "r5c5, r4c6, r5c1"));
}

TEST_P(Wings, WingsBothInThePivotsBlockAreNoPattern) {
  putmarks({{at(5, 5), "12"}, {at(4, 4), "13"}, {at(6, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(6, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(4, 4), "13"}, {at(5, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, Wing1OnTheLineOfWing2IsNoPattern) {
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(4, 5), "13"}, {at(9, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(5, 4), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, AnXYZWingNeedsAWingInTheBlock) {
  putmarks({{at(5, 5), "123"}, {at(5, 1), "13"}, {at(9, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, WingsHoldExactlyTwoCandidates) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "134"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "234"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(4, 6), "13"}, {at(5, 9), "234"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, AWingInThePivotsRowAndBlockGoesWithOneInItsColumn) {
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(9, 5), "23"}});
  const std::vector<int> after = maskswithout(3, {at(4, 5), at(6, 5), at(7, 4), at(8, 4), at(9, 4)});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c4, r9c5"));
  EXPECT_EQ(masks(), after);
}

TEST_P(Wings, APatternWithNothingToDeleteIsPassedOver) {
  putmarks({{at(3, 1), "58"},
            {at(3, 9), "68"},
            {at(9, 1), "56"},
            {at(9, 9), "123"},
            {at(5, 5), "12"},
            {at(5, 3), "13"},
            {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c3, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
}

// Z counts as gone from a house that has it placed, whatever the marks say that a user has edited by hand.
TEST_P(Wings, XYDoesNotLookForAZThatIsPlacedInTheHouse) {
  const auto found = [](const Marks& marks, std::int32_t slot, void (*twin)()) {
    usedmask(slot) = bitvalue(3);
    for (int cell = 0; cell < cellcount; ++cell) candmask(cell) = fullmask;
    for (const auto& [cell, digits] : marks) {
      candmask(cell) = maskof(digits);
      candstr(cell) = digits;
    }
    foundflag = false;
    twin();
    usedmask(slot) = 0;
    rebuildcandstr();
    return foundflag;
  };
  const int row = rowslot + 4, column = columnslot + 4, block = blockslot + 4;
  const Marks br = {{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "23"}};
  const Marks bc = {{at(5, 5), "12"}, {at(4, 6), "13"}, {at(9, 5), "23"}};
  const Marks rc = {{at(5, 5), "12"}, {at(5, 1), "13"}, {at(9, 5), "23"}};
  struct {
    const Marks& marks;
    int slot;
    bool expected;
  } const table[] = {{br, block, false}, {br, row, false}, {br, column, true},
                     {bc, block, false}, {bc, row, true},  {bc, column, false},
                     {rc, block, true},  {rc, row, false}, {rc, column, false}};
  for (const auto& line : table) {
    put(emptyboard);
    EXPECT_EQ(found(line.marks, line.slot, frmgenerazione::findxywing), line.expected) << line.slot;
  }
  // The XYZ-Wing doesn't ask.
  for (int slot : {row, column, block}) {
    put(emptyboard);
    EXPECT_TRUE(
        found({{at(5, 5), "123"}, {at(4, 6), "13"}, {at(5, 9), "23"}}, slot, frmgenerazione::findxyzwing));
  }
}

}  // namespace
}  // namespace gradino::tests
