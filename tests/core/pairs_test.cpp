// Naked and hidden pairs: which one is found, in which order, and what a stop leaves for the next one. What
// is said and done there: cases/nakedpair, hiddenpair.
#include "pairs.h"

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

class Pairs : public Program {
 protected:
  Pairs() { put(emptyboard); }

  std::string step(void (*routine)(), const Act& answer = go) { return hintof(player, routine, answer); }
};

TEST_F(Pairs, ThereAreNoneOnAnEmptyBoard) {
  foundflag = true;
  EXPECT_EQ(step(frmmain::nakedpair), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "nakedpair");
  foundflag = true;
  EXPECT_EQ(step(frmmain::hiddenpair), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "hiddenpair");
  for (const auto& twin : {frmgenerazione::nakedpair, frmgenerazione::hiddenpair}) {
    foundflag = true;
    EXPECT_EQ(logged(twin), "");
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(runninglevel, 0);
}

TEST_F(Pairs, EqualMasksOfThreeAreNoNakedPair) {
  leave(at(1, 2), "478");
  leave(at(1, 7), "478");
  EXPECT_EQ(step(frmmain::nakedpair), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logged(frmgenerazione::nakedpair), "");
}

TEST_F(Pairs, EqualMasksOfOneAreNoNakedPair) {
  leave(at(1, 2), "4");
  leave(at(1, 7), "4");
  EXPECT_EQ(step(frmmain::nakedpair), "");
}

TEST_F(Pairs, TwoCellsThatShareNoHouseAreNoNakedPair) {
  leave(at(1, 2), "47");
  leave(at(5, 7), "47");
  leave(at(5, 3), "48");
  EXPECT_EQ(step(frmmain::nakedpair), "");
}

TEST_F(Pairs, WithNothingToDeleteTheSearchGoesOnWithTheNextHouseThenTheNextCell) {
  leave(at(1, 1), "47");
  leave(at(1, 2), "47");
  take("47", row(1, {at(1, 1), at(1, 2)}));
  leave(at(8, 5), "23");
  leave(at(8, 9), "23");
  take("47", {at(2, 1), at(2, 2), at(2, 3), at(3, 1), at(3, 2)});
  EXPECT_EQ(logged(frmgenerazione::nakedpair),
            "\r\nNAKED PAIR 47 ,  cells r1c1 , r1c2\r\n * deleted 4 from r3c3 , 7 from r3c3 , ");
  EXPECT_EQ(step(frmmain::nakedpair), "NAKED PAIR 23, cells r8c5 , r8c9");
  EXPECT_EQ(step(frmmain::nakedpair), "");
  EXPECT_FALSE(foundflag);
}

TEST_F(Pairs, NakedPairsGoByTheLowerCellThenRowColumnBlock) {
  leave(at(1, 9), "47");
  leave(at(9, 9), "47");
  leave(at(2, 1), "56");
  leave(at(2, 5), "56");
  leave(at(3, 2), "56");
  leave(at(6, 1), "56");
  const char* const expected[] = {
      "NAKED PAIR 47, cells r1c9 , r9c9",
      "NAKED PAIR 56, cells r2c1 , r2c5",
      "NAKED PAIR 56, cells r2c1 , r6c1",
      "NAKED PAIR 56, cells r2c1 , r3c2",
      "",
  };
  for (const char* hint : expected) EXPECT_EQ(step(frmmain::nakedpair), hint);
}

TEST_F(Pairs, OneOfThreeEqualCellsLosesBothDigitsToTheFirstTwo) {
  leave(at(4, 1), "47");
  leave(at(4, 4), "47");
  leave(at(4, 7), "47");
  take("47", row(4, {at(4, 1), at(4, 4), at(4, 7)}));
  EXPECT_EQ(step(frmmain::nakedpair), "NAKED PAIR 47, cells r4c1 , r4c4");
  EXPECT_EQ(frmmain::txthint.text, "deleted 4 from r4c7 , 7 from r4c7 , ");
  EXPECT_EQ(candmask(at(4, 7)), 0);
}

TEST_F(Pairs, ATypedPairKeepsTheOrderOfItsDigits) {
  take("47", row(1, {at(1, 2), at(1, 5), at(1, 7)}));
  leave(at(1, 7), "47");
  modificacandidati = true;
  writetext2(at(1, 2), "74");
  modificacandidati = false;
  EXPECT_EQ(step(frmmain::nakedpair), "NAKED PAIR 74, cells r1c2 , r1c7");
  EXPECT_EQ(frmmain::txthint.text, "deleted 7 from r1c5 , 4 from r1c5 , ");
}

TEST_F(Pairs, ASignThatIsNoDigitStandsForNone) {
  take("4", row(1, {at(1, 2), at(1, 5), at(1, 7)}));
  leave(at(1, 7), "4");
  modificacandidati = true;
  writetext2(at(1, 2), "4.");
  modificacandidati = false;
  EXPECT_EQ(logged(frmgenerazione::nakedpair),
            "\r\nNAKED PAIR 4. ,  cells r1c2 , r1c7\r\n * deleted 4 from r1c5 , ");
}

TEST_F(Pairs, ThePartnerOfANakedPairIsTheHigherCell) {
  leave(at(1, 7), "47");
  modificacandidati = true;
  writetext2(at(1, 2), "4,7");  // the same mask, but three signs: no pair begins here
  modificacandidati = false;
  EXPECT_EQ(step(frmmain::nakedpair), "");
}

TEST_F(Pairs, ACellWithoutCandidatesIsNoNakedPairWhateverItsTextSays) {
  leave(at(1, 2), "47");
  candmask(at(1, 2)) = candmask(at(1, 7)) = 0;
  EXPECT_EQ(step(frmmain::nakedpair), "");
}

TEST_F(Pairs, HiddenPairsGoByTheirDigitsThenRowsColumnsBlocks) {
  take("89", row(1, {at(1, 2), at(1, 8)}));
  take("12", block(9, {at(7, 7), at(9, 9)}));
  take("12", column(2, {at(5, 2), at(9, 2)}));
  take("12", column(1, {at(5, 1), at(9, 1)}));
  take("12", row(6, {at(6, 3), at(6, 9)}));
  take("13", row(3, {at(3, 5), at(3, 9)}));
  const char* const expected[] = {
      "HIDDEN PAIR 12, cells r6c3 , r6c9",
      "HIDDEN PAIR 12, cells r5c1 , r9c1",
      "HIDDEN PAIR 12, cells r5c2 , r9c2",
      "HIDDEN PAIR 12, cells r7c7 , r9c9",
      "HIDDEN PAIR 13, cells r3c5 , r3c9",
      "HIDDEN PAIR 89, cells r1c2 , r1c8",
      "",
  };
  for (const char* hint : expected) EXPECT_EQ(step(frmmain::hiddenpair), hint);
}

TEST_F(Pairs, LowDigitsInABlockComeBeforeHighDigitsInARow) {
  take("89", row(1, {at(1, 2), at(1, 8)}));
  take("12", block(9, {at(7, 7), at(9, 9)}));
  EXPECT_EQ(step(frmmain::hiddenpair), "HIDDEN PAIR 12, cells r7c7 , r9c9");
  EXPECT_EQ(step(frmmain::hiddenpair), "HIDDEN PAIR 89, cells r1c2 , r1c8");
}

TEST_F(Pairs, TwoDigitsWithThreePlacesOrWithOtherPlacesAreNoHiddenPair) {
  take("12", row(1, {at(1, 2), at(1, 5), at(1, 8)}));
  take("3", row(4, {at(4, 2), at(4, 8)}));
  take("4", row(4, {at(4, 2), at(4, 9)}));
  take("5", row(4, {at(4, 2)}));
  take("6", row(4, {at(4, 2)}));
  EXPECT_EQ(step(frmmain::hiddenpair), "");
  EXPECT_EQ(logged(frmgenerazione::hiddenpair), "");
}

TEST_F(Pairs, ABareHiddenPairIsPassedOver) {
  take("89", row(1, {at(1, 2), at(1, 8)}));
  leave(at(1, 2), "89");
  leave(at(1, 8), "89");
  EXPECT_EQ(step(frmmain::hiddenpair), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logged(frmgenerazione::hiddenpair), "");
  take("29", column(9, {at(3, 9), at(4, 9)}));
  EXPECT_EQ(logged(frmgenerazione::hiddenpair),
            "\r\nHIDDEN PAIR 29, cells r3c9 , r4c9\r\n * entered 29 in r3c9 , r4c9");
}

TEST_F(Pairs, AStoppedHiddenPairStaysNarrowedAndIsPassedOver) {
  take("12", row(1, {at(1, 2), at(1, 8)}));
  take("34", row(9, {at(9, 2), at(9, 8)}));
  EXPECT_EQ(step(frmmain::hiddenpair, stop), "HIDDEN PAIR 12, cells r1c2 , r1c8");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(candmask(at(1, 2)), 2 + 4);
  EXPECT_EQ(candmask(at(1, 8)), 2 + 4);
  EXPECT_EQ(candstr(at(1, 2)), "123456789");
  EXPECT_EQ(visiblemarks(at(1, 2)), "123456789");
  EXPECT_EQ(colpos(9, 1).text(), "012345678");
  EXPECT_EQ(frmmain::txthint.text, "HIDDEN PAIR 12, cells r1c2 , r1c8");

  EXPECT_EQ(step(frmmain::hiddenpair), "HIDDEN PAIR 34, cells r9c2 , r9c8");
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(candstr(at(1, 2)), "12");
  EXPECT_EQ(visiblemarks(at(1, 2)), "12");
}

TEST_F(Pairs, AfterAStoppedPairTheLadderGoesOn) {
  take("47", row(9, {at(9, 2), at(9, 8)}));
  leave(at(5, 2), "36");
  leave(at(5, 8), "36");
  player.script = {stop, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].hint, "NAKED PAIR 36, cells r5c2 , r5c8");
  EXPECT_EQ(player.frames[1].hint, "HIDDEN PAIR 47, cells r9c2 , r9c8");
}

}  // namespace
}  // namespace gradino::tests
