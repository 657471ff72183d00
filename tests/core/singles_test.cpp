// The singles: what their searches return, and how the ladders go through them. What is said, shown and done
// on a board is in tests/cases: lastdigit, hiddensingle, nakedsingle.
#include "singles.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "editing.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "intersections.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- what is found ----------------------------------------------------------------------------------------

/// The five searches in the order of the ladder: the first that finds something.
std::pair<std::string, std::string> firstsingle() {
  if (auto r = findOneMissing(); !r.empty()) return {"findOneMissing", r};
  if (auto r = findSingleInBlock(); !r.empty()) return {"findSingleInBlock", r};
  if (auto r = findSingleInRow(); !r.empty()) return {"findSingleInRow", r};
  if (auto r = findSingleInColumn(); !r.empty()) return {"findSingleInColumn", r};
  if (auto r = findSingleInCell(); !r.empty()) return {"findSingleInCell", r};
  return {"", ""};
}

/// The digit that is found on the board of a case, and where.
struct Single {
  const char* name;
  const char* tag;
  const char* result;
  int digit, cell;
};

const Single singles[] = {
    {"lastdigit/block", "findOneMissing", "b140", 1, at(5, 5)},
    {"lastdigit/row", "findOneMissing", "r421", 4, at(3, 4)},
    {"lastdigit/column", "findOneMissing", "c180", 1, at(9, 9)},
    {"hiddensingle/block", "findSingleInBlock", "554", 5, at(5, 8)},
    {"hiddensingle/row", "findSingleInRow", "500", 5, at(1, 1)},
    {"hiddensingle/column", "findSingleInColumn", "500", 5, at(1, 1)},
    {"nakedsingle/eight-digits-seen", "findSingleInCell", "540", 5, at(5, 5)},
};

class EachSingle : public Program, public testing::WithParamInterface<Single> {
 protected:
  EachSingle() { putcase(GetParam().name); }
};

TEST_P(EachSingle, IsFoundWithItsResult) {
  EXPECT_EQ(firstsingle(), (std::pair<std::string, std::string>(GetParam().tag, GetParam().result)));
}

TEST_P(EachSingle, IsCountedInTheWindow) {
  const int before = filledcount;
  player.script = {go};
  player.event(mnuposition_Click);
  EXPECT_EQ(frmmain::txtesposti.text, std::to_string(before + 1));
  EXPECT_EQ(frmmain::txtvuoti.text, std::to_string(80 - before));
}

// As the techniques of the menu move them, which nothing keeps out of a wait.
TEST_P(EachSingle, IsPlacedInItsOwnCellWhateverOtherStepsWereShownMeanwhile) {
  std::string after = boxtexts();
  after.at(static_cast<std::size_t>(GetParam().cell)) = static_cast<char>('0' + GetParam().digit);
  player.script = {[] {
                     curdigit = 9;
                     curcell = 72;
                     curblock = currow = curcol = 3;
                   },
                   go};
  player.event(mnuposition_Click);
  EXPECT_EQ(boxtexts(), after);
  EXPECT_EQ(values(), after);
  expectnopaint();
}

INSTANTIATE_TEST_SUITE_P(Kind, EachSingle, testing::ValuesIn(singles), [](const auto& p) {
  std::string name = p.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '/' || c == '-'; }, '_');
  return name;
});

// ---- searches ---------------------------------------------------------------------------------------------

TEST_F(Program, OnAFinishedBoardNoSingleIsFound) {
  put(fullboard);
  EXPECT_EQ(firstsingle(), std::pair(std::string(), std::string()));
}

TEST_F(Program, ACellWithoutCandidateIsSkippedBySinglesWithoutAWord) {
  // r9c9 lacks its last digit: 5 of its row, but column and block hold 5
  put("14729563825316847989643712536895471242971358657168239461257984398534126713482695.");
  EXPECT_EQ(candmask(80), 0);
  EXPECT_EQ(firstsingle(), std::pair(std::string(), std::string()));
  EXPECT_TRUE(player.boxes.empty());
}

TEST_F(Program, LastDigitOfBlockAndRowIsReportedAsTheBlocks) {
  put(without(fullboard, {0}));
  EXPECT_EQ(findOneMissing(), "b10");
}

TEST_F(Program, LastDigitOfRowAndColumnIsReportedAsTheRows) {
  // r1c1 is open together with r2c2, so no block qualifies; row and column do
  put(without(fullboard, {0, 10}));
  EXPECT_EQ(findOneMissing(), "r10");
}

TEST_F(Program, HousesOfTheLastDigitAreTriedBlocksThenRowsThenColumnsEachAscending) {
  put(without(fullboard, {at(1, 1), at(2, 2), at(9, 9)}));
  EXPECT_EQ(findOneMissing(), "b180") << "block 9 before row 1";
  put(without(fullboard, {at(5, 5), at(4, 4), at(9, 9), at(8, 8)}));
  EXPECT_EQ(findOneMissing(), "r930") << "row 4 before row 5";
  put(without(fullboard, {at(5, 5), at(1, 9)}));
  EXPECT_EQ(findOneMissing(), "b88") << "block 3 before block 5";
}

TEST_F(Program, AHouseWhoseLastCandidateWasEliminatedIsPassedOver) {
  put(without(fullboard, {at(1, 1), at(9, 9)}));
  eliminate(at(1, 1), "1");
  EXPECT_EQ(findOneMissing(), "b180");
}

TEST_F(Program, EachDigitCanBeTheLastOfAHouse) {
  for (int digit = 1; digit <= 9; ++digit) {
    const auto cell = static_cast<int>(fullboard.find(static_cast<char>('0' + digit)));
    put(without(fullboard, {cell}));
    EXPECT_EQ(findOneMissing(), "b" + std::to_string(digit) + std::to_string(cell));
  }
}

TEST_F(Program, LowestHouseWinsAndInsideItTheLowestDigit) {
  put(emptyboard);
  const auto only = [](Grid<Positions, 9, 9>& table, int digit, int house, int place) {
    table(digit, house) = {};
    table(digit, house).add(place);
  };
  const auto compare = [&](Grid<Positions, 9, 9>& table, std::string (*find)()) {
    only(table, 2, 7, 5);
    EXPECT_EQ(find(), "275");
    only(table, 9, 3, 8);
    EXPECT_EQ(find(), "938");
    only(table, 4, 3, 0);
    EXPECT_EQ(find(), "430");
  };
  compare(blockpos, findSingleInBlock);
  compare(rowpos, findSingleInRow);
  compare(colpos, findSingleInColumn);
}

TEST_F(Program, AColumnsResultHasTheColumnBeforeTheRow) {
  put(emptyboard);
  colpos(6, 2) = {};
  colpos(6, 2).add(7);
  EXPECT_EQ(findSingleInColumn(), "627");
  player.script = {go};
  rebuildpositions();
  for (int row = 1; row <= 9; ++row)
    if (row != 8) deletecandidate(at(row, 3), 6);
  rebuildcandstr();
  deletecandidate(at(7, 9), 1);
  player.event(mnuposition_Click);
  EXPECT_EQ(cellvalue(at(8, 3)), 6);
  EXPECT_EQ(curcol, 2);
}

TEST_F(Program, TheLowestCellWithOneCandidateWinsAndTwoBitsMatchNothing) {
  put(emptyboard);
  candmask(70) = bitvalue(3);
  EXPECT_EQ(findSingleInCell(), "370");
  candmask(7) = bitvalue(9);
  EXPECT_EQ(findSingleInCell(), "97");
  candmask(7) = bitvalue(9) + bitvalue(1);
  EXPECT_EQ(findSingleInCell(), "370");
  for (int digit = 1; digit <= 9; ++digit) {
    candmask(7) = bitvalue(digit);
    EXPECT_EQ(findSingleInCell(), std::to_string(digit) + "7");
  }
  candmask(7) = bitvalue(9);
  cellvalue(7) = 9;
  EXPECT_EQ(findSingleInCell(), "370") << "a filled cell is no single, whatever its mask";
}

TEST_F(Program, AHiddenSingleThatIsAlsoNakedCountsNothing) {
  putcase("hiddensingle/block");
  for (char d : std::string("12346789")) deletecandidate(at(5, 8), d - '0');
  rebuildcandstr();
  rebuildpositions();
  EXPECT_EQ(findSingleInCell(), "543");
  for (const SingleRung& rung : singlerungs)
    if (frmgenerazione::single(rung)) break;
  EXPECT_EQ(Frmlog::Text3.text, "\r\n5 hidden single in block 6, in r5c8");
  EXPECT_EQ(runninglevel, 0);
  EXPECT_EQ(levelcount(2), 0);
}

// ---- the step ---------------------------------------------------------------------------------------------

TEST_F(Program, BothLaddersTryTheSinglesInTheirOrder) {
  std::mt19937 random(7);
  std::map<std::string, int> met;
  const char* const grids[] = {
      fullboard.data(), "812753649943682175675491283154237896369845721287169534521974368438526917796318452"};
  for (int n = 0; n < 1500; ++n) {
    std::string puzzle = grids[n % 2];
    const auto keep = 20 + random() % 45;
    for (char& c : puzzle)
      if (random() % 81 >= keep) c = '.';
    put(puzzle);
    for (auto k = random() % 30; k > 0; --k)
      deletecandidate(static_cast<int>(random() % 81), static_cast<int>(random() % 9 + 1));
    rebuildcandstr();
    rebuildpositions();
    const auto [tag, result] = firstsingle();
    if (tag.empty()) continue;
    ++met[tag];

    logcount = 0;
    player.script = {stop};
    player.event(mnuposition_Click);
    ASSERT_EQ(player.frames.back().tag, tag);
    for (const SingleRung& rung : singlerungs)
      if (frmgenerazione::single(rung)) {
        EXPECT_EQ(rung.technique.tag, tag);
        break;
      }
  }
  EXPECT_EQ(met.size(), 5u) << "every rung must have had its turn";
}

TEST_F(Program, ATechniqueDuringASinglesWaitActsAsWellAndMovesNothing) {
  const std::string puzzle =
      "71.....3.....725......3.2.1.215..8...9..4..2...3..819.1.7.8......972.....3.....58";
  put(puzzle);
  eliminate(at(1, 6), "5");
  eliminate(at(3, 6), "5");
  Text1_Typed(at(1, 3), "2");
  const Board after = theboard();
  put(puzzle);
  player.script = {frmmain::intersections, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].hint, "hidden single in block 1, in r1c3");
  EXPECT_EQ(player.frames[0].number, "2");
  EXPECT_EQ(player.frames[1].hint, "INTERSECTION - in block 8 is present only on column 6");
  EXPECT_EQ(theboard(), after);
  expectmarks(after);
  expectnopaint();
}

TEST_F(Program, TheLastDigitOfAHouseLeavesTheEarlierSingleForTheExplanation) {
  putcase("nakedsingle/eight-digits-seen");
  player.script = {stop, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(stepdigit, 5);
  EXPECT_EQ(stepcell, 40);
  putcase("lastdigit/row");
  player.event(mnuposition_Click);
  EXPECT_EQ(curcell, 21);
  EXPECT_EQ(stepdigit, 5);
  EXPECT_EQ(stepcell, 40);
}

TEST_F(Program, AStepBeginsWithFreshPositionsAndAnOpenChangeHandling) {
  putcase("nakedsingle/eight-digits-seen");
  rowpos.clear();
  colpos.clear();
  blockpos.clear();
  blockpos(3, 0).add(0);  // stale: nothing says that 3 belongs into r1c1
  suppresschange = true;
  player.script = {go};
  player.event(mnuposition_Click);
  EXPECT_EQ(cellvalue(40), 5);
  EXPECT_EQ(player.frames.at(0).tag, "findSingleInCell");
}

TEST_F(Program, WithNothingToFindAStepIsSilentAndKeepsTheSentence) {
  put(fullboard);
  frmmain::txthint.text = "the last sentence";
  const Board before = theboard();
  player.event(mnuposition_Click);
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(frmmain::txthint.text, "the last sentence");
}

TEST_F(Program, OneCallIsOneStep) {
  put(without(fullboard, {0, 40, 80}));
  player.script = {go};
  player.event(mnuposition_Click);
  EXPECT_EQ(filledcount, 79);
  EXPECT_EQ(player.frames.size(), 1u);
}

}  // namespace
}  // namespace gradino::tests
