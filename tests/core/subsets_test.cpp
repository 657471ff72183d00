// Triples and quads: which one is found, and in which order. What is said and done there: cases/triple, quad.
#include "subsets.h"

#include <gtest/gtest.h>

#include "caseboard.h"
#include "commands.h"
#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "menu.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

class Subsets : public Program {
 protected:
  Subsets() { put(emptyboard); }

  std::string triple() { return hintof(player, frmmain::findtriple); }
  std::string quad() { return hintof(player, frmmain::findquad); }
  static std::string done() { return frmmain::txthint.text; }
  /// The other cells of a row hold these digits alone.
  static void leaverest(int number, const std::vector<int>& but, const std::string& digits) {
    std::vector<int> members;
    members.reserve(but.size());
    for (int col : but) members.push_back(at(number, col));
    leave(each(row(number, members), digits));
  }
};

TEST_F(Subsets, NoneOnAnEmptyBoardAndTheStepLeavesFoundflagWhileTheTwinClearsIt) {
  for (const bool flag : {false, true}) {
    foundflag = flag;
    EXPECT_EQ(triple(), "");
    EXPECT_EQ(steptag, "findtriple");
    EXPECT_EQ(quad(), "");
    EXPECT_EQ(steptag, "findquad");
    EXPECT_EQ(foundflag, flag);
  }
  for (const auto& twin : {frmgenerazione::findtriple, frmgenerazione::findquad}) {
    foundflag = true;
    twin();
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(runninglevel, 0);
}

// findtriple leaves foundflag as the command before has set it.
TEST_F(Subsets, TheKeyLooksForAQuadWhateverWasFoundBefore) {
  for (const char* quad : {"quad/naked-row", "quad/naked-column"}) {
    putcase(quad);
    for (const KeyRow& row : toolbar1rows())
      if (row.control == &frmmain::Toolbar1::nakedtriple) {
        player.script = {go};
        player.event([&] { Toolbar1_ButtonClick(row); });
      }
    EXPECT_TRUE(foundflag);
  }
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].hint, "NAKED QUAD 1468, cells r6c2 , r6c5 , r6c6 , r6c9");
  EXPECT_EQ(player.frames[1].hint, "NAKED QUAD 2579, cells r1c3 , r4c3 , r7c3 , r8c3");
  EXPECT_EQ(done(), "deleted 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ");
}

TEST_F(Subsets, AHouseWithFiveOpenDigitsIsTooSmallForATriple) {
  leave({{at(1, 1), "123"}, {at(1, 5), "123"}, {at(1, 9), "123"}});
  leaverest(1, {1, 5, 9}, "12345");
  EXPECT_EQ(triple(), "");
}

TEST_F(Subsets, AHouseWithSixOpenDigitsIsLargeEnoughForATripleButTooSmallForAQuad) {
  leave({{at(1, 1), "123"}, {at(1, 5), "123"}, {at(1, 9), "123"}});
  leaverest(1, {1, 5, 9}, "123456");
  EXPECT_EQ(triple(), "NAKED TRIPLE 123, cells r1c1 , r1c5 , r1c9");
  put(emptyboard);
  leave({{at(1, 1), "1234"}, {at(1, 4), "1234"}, {at(1, 5), "1234"}, {at(1, 9), "1234"}});
  leaverest(1, {1, 4, 5, 9}, "123456");
  EXPECT_EQ(quad(), "");
}

TEST_F(Subsets, AHouseWithSevenOpenDigitsIsLargeEnoughForAQuad) {
  leave({{at(1, 1), "1234"}, {at(1, 4), "1234"}, {at(1, 5), "1234"}, {at(1, 9), "1234"}});
  leaverest(1, {1, 4, 5, 9}, "1234567");
  EXPECT_EQ(quad(), "NAKED QUAD 1234, cells r1c1 , r1c4 , r1c5 , r1c9");
}

TEST_F(Subsets, ACellWithOneCandidateIsNoMemberOfATriple) {
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "1"}});
  EXPECT_EQ(triple(), "");
  put(emptyboard);
  leave({{at(4, 1), "1"}, {at(4, 5), "12"}, {at(4, 9), "123"}});
  EXPECT_EQ(triple(), "");
  put(emptyboard);
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "13"}});
  EXPECT_EQ(triple(), "NAKED TRIPLE 123, cells r4c1 , r4c5 , r4c9");
}

TEST_F(Subsets, FourPairsAreNoNakedQuadFourTriplesAre) {
  leave({{at(4, 1), "12"}, {at(4, 4), "23"}, {at(4, 5), "34"}, {at(4, 9), "14"}});
  EXPECT_EQ(quad(), "");
  put(emptyboard);
  leave({{at(4, 1), "123"}, {at(4, 4), "234"}, {at(4, 5), "134"}, {at(4, 9), "124"}});
  EXPECT_EQ(quad(), "NAKED QUAD 1234, cells r4c1 , r4c4 , r4c5 , r4c9");
}

TEST_F(Subsets, OneOfFourMembersLosesItsCandidatesToTheFirstThree) {
  leave({{at(4, 1), "12"}, {at(4, 4), "23"}, {at(4, 5), "13"}, {at(4, 9), "123"}});
  leaverest(4, {1, 4, 5, 9}, "456789");
  EXPECT_EQ(triple(), "NAKED TRIPLE 123, cells r4c1 , r4c4 , r4c5");
  EXPECT_EQ(done(), "deleted 1 from r4c9 , 2 from r4c9 , 3 from r4c9 , ");
  EXPECT_EQ(candmask(at(4, 9)), 0);
}

TEST_F(Subsets, ANakedPatternWithNothingToDeleteIsPassedOver) {
  leave({{at(4, 1), "12"}, {at(4, 4), "23"}, {at(4, 9), "13"}});
  leaverest(4, {1, 4, 9}, "456789");
  EXPECT_EQ(triple(), "");
  leave({{at(4, 2), "45789"}, {at(4, 6), "789"}, {at(4, 7), "789"}, {at(4, 8), "789"}});
  EXPECT_EQ(triple(), "HIDDEN TRIPLE 456, cells r4c2 , r4c3 , r4c5");
}

// Positions that are older than the masks, as pencil marks edited by hand leave them: the naked pattern is
// read in the masks, and with nothing to delete the same digits are tried in the positions of the same house.
TEST_F(Subsets, BehindAUselessNakedPatternTheHouseIsTriedForAHiddenOne) {
  leave({{at(4, 2), "1245"}, {at(4, 5), "2367"}, {at(4, 8), "1389"}});
  leaverest(4, {2, 5, 8}, "456789");
  for (int col : {2, 5, 8}) candmask(at(4, col)) = bitvalue(4) | bitvalue(5);
  for (int col : {1, 4, 9}) candmask(at(4, col)) = bitvalue(1) | bitvalue(2) | bitvalue(3);
  EXPECT_EQ(triple(), "HIDDEN TRIPLE 123, cells r4c2 , r4c8 , r4c5");
}

TEST_F(Subsets, ABareHiddenTripleIsPassedOverAndOneExtraCandidateIsEnough) {
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "13"}});
  leaverest(4, {1, 5, 9}, "456789");
  EXPECT_EQ(triple(), "");
  put(emptyboard);
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "138"}});
  leaverest(4, {1, 5, 9}, "456789");
  EXPECT_EQ(triple(), "HIDDEN TRIPLE 123, cells r4c1 , r4c9 , r4c5");
  EXPECT_EQ(candstr(at(4, 9)), "13");
  EXPECT_EQ(triple(), "");
}

// A stopped hidden pair leaves narrow masks under older positions.
TEST_F(Subsets, AHiddenTripleIsBareByTheMasksWhateverThePositionsSay) {
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "138"}});
  leaverest(4, {1, 5, 9}, "456789");
  candmask(at(4, 9)) = bitvalue(1) | bitvalue(3);
  EXPECT_EQ(triple(), "");
}

// Three cells {1,2} match 123 as well as 124; with 3 placed in the row only 124 is tried.
TEST_F(Subsets, ADigitPlacedInTheHouseRulesOutItsSets) {
  leave({{at(4, 1), "12"}, {at(4, 4), "12"}, {at(4, 7), "12"}});
  EXPECT_EQ(triple(), "NAKED TRIPLE 123, cells r4c1 , r4c4 , r4c7");
  put(with({{at(4, 9), '3'}}));
  leave({{at(4, 1), "12"}, {at(4, 4), "12"}, {at(4, 7), "12"}});
  EXPECT_EQ(triple(), "NAKED TRIPLE 124, cells r4c1 , r4c4 , r4c7");
}

TEST_F(Subsets, ADigitWithoutAPlaceMakesNoHiddenTriple) {
  leaverest(4, {1, 5, 9}, "456789");
  leave({{at(4, 1), "1456789"}, {at(4, 5), "12456789"}, {at(4, 9), "2456789"}});
  EXPECT_EQ(triple(), "");
}

TEST_F(Subsets, TheDigitsAreOutermostThenRowsColumnsBlocks) {
  leave({{at(2, 1), "12"}, {at(6, 1), "23"}, {at(9, 1), "13"}});  // column 1
  leave({{at(8, 7), "12"}, {at(7, 8), "23"}, {at(9, 9), "13"}});  // block 9
  leave({{at(3, 3), "14"}, {at(3, 6), "24"}, {at(3, 9), "12"}});  // row 3, digits 124
  leave({{at(5, 2), "12"}, {at(5, 5), "23"}, {at(5, 8), "13"}});  // row 5
  const char* const expected[] = {
      "NAKED TRIPLE 123, cells r5c2 , r5c5 , r5c8",
      "NAKED TRIPLE 123, cells r2c1 , r6c1 , r9c1",
      "NAKED TRIPLE 123, cells r7c8 , r8c7 , r9c9",
      "NAKED TRIPLE 124, cells r3c3 , r3c6 , r3c9",
      "",
  };
  for (const char* hint : expected) EXPECT_EQ(triple(), hint);
}

TEST_F(Subsets, ASearchWithoutAResultDuringAWaitHasNothingToExplain) {
  leave({{at(4, 1), "12"}, {at(4, 5), "23"}, {at(4, 9), "13"}});
  player.script = {frmmain::findquad, help, go};
  player.event(frmmain::findtriple);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[2].tag, "findquad");
  EXPECT_EQ(player.frames[2].activity, std::nullopt);
  EXPECT_EQ(candstr(at(4, 2)), "456789");
}

}  // namespace
}  // namespace gradino::tests
