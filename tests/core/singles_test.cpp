// The singles: what their searches return, what step and log say, and how the ladders go through them.
#include "singles.h"

#include <random>

#include <gtest/gtest.h>

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

// ---- boards that show just one single, the first of its kind ----------------------------------------------

const std::string& lastinblockboard() {  // 1 is the last digit of block 5
  static const std::string board = with({{at(4, 4), '9'},
                                         {at(4, 5), '5'},
                                         {at(4, 6), '4'},
                                         {at(5, 4), '7'},
                                         {at(5, 6), '3'},
                                         {at(6, 4), '6'},
                                         {at(6, 5), '8'},
                                         {at(6, 6), '2'}});
  return board;
}
const std::string lastinrowboard = emptyboard.substr(0, 18) + "896.37125" + emptyboard.substr(0, 54);
const std::string& lastincolumnboard() {  // 8 9 5 2 6 4 3 7 above the open r9c9
  static const std::string board = with({{at(1, 9), '8'},
                                         {at(2, 9), '9'},
                                         {at(3, 9), '5'},
                                         {at(4, 9), '2'},
                                         {at(5, 9), '6'},
                                         {at(6, 9), '4'},
                                         {at(7, 9), '3'},
                                         {at(8, 9), '7'}});
  return board;
}
// 5 in block 6: rows 4 and 6 hold it, and so do columns 7 and 9; r5c8 is left.
const std::string inblockboard = with({{at(4, 1), '5'}, {at(6, 4), '5'}, {at(2, 7), '5'}, {at(9, 9), '5'}});
// 5 in row 1: blocks 2 and 3 hold it lower down, r1c2 is filled, column 3 holds it; r1c1 is left, while block
// and column have other places.
const std::string inrowboard = with({{at(2, 4), '5'},
                                     {at(3, 7), '2'},
                                     {at(1, 2), '2'},
                                     {at(7, 3), '5'},
                                     {at(1, 7), '3'},
                                     {at(1, 8), '4'},
                                     {at(1, 9), '6'}});
const std::string incolumnboard = with({{at(4, 2), '5'},
                                        {at(7, 3), '2'},
                                        {at(2, 1), '2'},
                                        {at(3, 7), '5'},
                                        {at(7, 1), '3'},
                                        {at(8, 1), '4'},
                                        {at(9, 1), '6'}});
// r5c5 sees all but 5.
const std::string incellboard = with({{at(4, 4), '1'},
                                      {at(6, 6), '2'},
                                      {at(5, 1), '3'},
                                      {at(5, 9), '4'},
                                      {at(1, 5), '6'},
                                      {at(9, 5), '7'},
                                      {at(5, 2), '8'},
                                      {at(2, 5), '9'}});

struct Case {
  const char* name;
  std::string board;
  std::string tag, result;
  int digit, cell;
  std::string hintit, hinten, headit, headen;
  int level;
};

std::vector<Case> cases() {
  return {
      {"LastInRow", lastinrowboard, "findOneMissing", "r421", 4, at(3, 4),
       "4 unico rimanante nella riga , in r3c4", "4 last digit in  row , r3c4",
       "4 unico rimanante nella riga , in r3c4", "4 last digit in  row , r3c4", 0},
      {"LastInColumn", lastincolumnboard(), "findOneMissing", "c180", 1, at(9, 9),
       "1 unico rimanante nella colonna , in r9c9", "1 last digit in  column , r9c9",
       "1 unico rimanante nella colonna , in r9c9", "1 last digit in  column , r9c9", 0},
      {"LastInBlock", lastinblockboard(), "findOneMissing", "b140", 1, at(5, 5),
       "1 unico rimanante nel settore , in r5c5", "1 last digit in  block , r5c5",
       "1 unico rimanante nel settore , in r5c5", "1 last digit in  block , r5c5", 0},
      {"HiddenInBlock", inblockboard, "findSingleInBlock", "554", 5, at(5, 8),
       "hidden single nel settore 6, in r5c8", "hidden single in block 6, in r5c8",
       "5 hidden single  nel settore 6, in r5c8", "5 hidden single in block 6, in r5c8", 0},
      {"HiddenInRow", inrowboard, "findSingleInRow", "500", 5, at(1, 1),
       "hidden single nella riga 1, in r1c1", "hidden single in row 1, in r1c1",
       "5 hidden single  nella riga 1, in r1c1", "5 hidden single in row 1, in r1c1", 1},
      {"HiddenInColumn", incolumnboard, "findSingleInColumn", "500", 5, at(1, 1),
       "hidden single nella colonna 1, in r1c1", "hidden single in column 1, in r1c1",
       "5 hidden single  nella colonna 1, in r1c1", "5 hidden single in column 1, in r1c1", 1},
      {"NakedInCell", incellboard, "findSingleInCell", "540", 5, at(5, 5), "naked single nella cella r5c5",
       "naked single in cell r5c5", "5 naked single  nella cella r5c5", "5 naked single in cell r5c5", 2},
  };
}

/// The five searches in the order of the ladder: the first that finds something.
std::pair<std::string, std::string> firstsingle() {
  if (auto r = findOneMissing(); !r.empty()) return {"findOneMissing", r};
  if (auto r = findSingleInBlock(); !r.empty()) return {"findSingleInBlock", r};
  if (auto r = findSingleInRow(); !r.empty()) return {"findSingleInRow", r};
  if (auto r = findSingleInColumn(); !r.empty()) return {"findSingleInColumn", r};
  if (auto r = findSingleInCell(); !r.empty()) return {"findSingleInCell", r};
  return {"", ""};
}

class EachSingle : public Program, public testing::WithParamInterface<std::tuple<Case, int>> {
 protected:
  EachSingle() {
    speak(std::get<int>(GetParam()));
    put(one().board);
  }
  const Case& one() const { return std::get<Case>(GetParam()); }
  bool initalian() const { return std::get<int>(GetParam()) == italian; }
};

TEST_P(EachSingle, IsFoundWithItsResult) {
  EXPECT_EQ(firstsingle(), std::pair(one().tag, one().result));
}

TEST_P(EachSingle, StepShowsSentenceColoursAndDigitAndOnGoPlacesIt) {
  const Board before = theboard();
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  const Frame expected = {.tag = one().tag,
                          .hint = initalian() ? one().hintit : one().hinten,
                          .number = std::to_string(one().digit),
                          .activity = {},
                          .Text1 = {{one().cell, "yellow"}},
                          .Text2 = {},
                          .candidate = {{one().cell * 10 + one().digit, "green"}}};
  EXPECT_EQ(player.frames[0], expected);
  EXPECT_EQ(player.frames[1], expected);

  EXPECT_EQ(look().Text1, Paint{});
  EXPECT_EQ(look().candidate, Paint{});
  EXPECT_EQ(look().hint, expected.hint);
  EXPECT_EQ(cellvalue(one().cell), one().digit);
  EXPECT_EQ(candmask(one().cell), 0);
  EXPECT_EQ(filledcount, before.filledcount + 1);
  EXPECT_EQ(frmmain::Text1(one().cell).text, std::to_string(one().digit));
  EXPECT_TRUE(frmmain::Text1(one().cell).visible);
  EXPECT_EQ(frmmain::txtesposti.text, std::to_string(before.filledcount + 1));
  EXPECT_EQ(frmmain::txtvuoti.text, std::to_string(80 - before.filledcount));
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_TRUE(player.boxes.empty());
}

TEST_P(EachSingle, StopLeavesTheBoardAndKeepsTheColours) {
  const Board before = theboard();
  player.script = {stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(look(), player.frames.at(0));
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(steptag, one().tag);
}

TEST_P(EachSingle, IsPlacedAlsoWhereTheCellIsCoveredByPencilMarks) {
  frmmain::Text1(one().cell).visible = false;
  player.script = {go};
  player.event(mnuposition_Click);
  EXPECT_TRUE(frmmain::Text1(one().cell).visible);
}

// As the techniques of the menu move them, which nothing keeps out of a wait.
TEST_P(EachSingle, IsPlacedInItsOwnCellWhateverOtherStepsWereShownMeanwhile) {
  std::string after = boxtexts();
  after.at(static_cast<std::size_t>(one().cell)) = static_cast<char>('0' + one().digit);
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

TEST_P(EachSingle, GraderWritesItsHeadlineAndSnapshotAndPlacesItSilently) {
  const std::string before = values(), boxes = boxtexts();
  const std::vector<int> masksbefore = masks();
  for (const SingleRung& rung : singlerungs)
    if (frmgenerazione::single(rung)) break;
  EXPECT_EQ(Frmlog::Text3.text, "\r\n" + (initalian() ? one().headit : one().headen));
  EXPECT_EQ(logcount, 1);
  std::string zeros, numbers;
  for (char c : before) zeros += c == '.' ? '0' : c;
  for (int mask : masksbefore) numbers += std::to_string(mask) + ",";
  EXPECT_EQ(logvalues(1), zeros);
  EXPECT_EQ(logcands(1), numbers);
  EXPECT_EQ(logvalues(0), "");
  EXPECT_EQ(cellvalue(one().cell), one().digit);
  EXPECT_EQ(candmask(one().cell), 0);
  EXPECT_EQ(boxtexts(), boxes);
  EXPECT_EQ(runninglevel, one().level);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), level == one().level ? 1 : 0);
  EXPECT_TRUE(player.frames.empty());
}

INSTANTIATE_TEST_SUITE_P(Kind, EachSingle,
                         testing::Combine(testing::ValuesIn(cases()), testing::Values(english, italian)),
                         [](const auto& p) {
                           return std::string(std::get<Case>(p.param).name) +
                                  (std::get<int>(p.param) == english ? "English" : "Italian");
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
  put(inblockboard);
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

// ---- the step
// -----------------------------------------------------------------------------------------------

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

TEST_F(Program, ASingleSetsOnlyTheHouseItWasFoundIn) {
  const auto step = [this](const std::string& board) {
    curblock = currow = curcol = 77;
    put(board);
    player.script = {stop};
    player.event(mnuposition_Click);
    return std::vector<int>{curdigit, curcell, curblock, currow, curcol};
  };
  EXPECT_EQ(step(lastinblockboard()), (std::vector<int>{1, 40, 4, 77, 77}));
  EXPECT_EQ(step(lastinrowboard), (std::vector<int>{4, 21, 77, 2, 77}));
  EXPECT_EQ(step(lastincolumnboard()), (std::vector<int>{1, 80, 77, 77, 8}));
  EXPECT_EQ(step(inblockboard), (std::vector<int>{5, 43, 5, 77, 77}));
  EXPECT_EQ(step(inrowboard), (std::vector<int>{5, 0, 77, 0, 77}));
  EXPECT_EQ(step(incolumnboard), (std::vector<int>{5, 0, 77, 77, 0}));
  EXPECT_EQ(step(incellboard), (std::vector<int>{5, 40, 77, 77, 77}));
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
  put(incellboard);
  player.script = {stop, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(stepdigit, 5);
  EXPECT_EQ(stepcell, 40);
  put(lastinrowboard);
  player.event(mnuposition_Click);
  EXPECT_EQ(curcell, 21);
  EXPECT_EQ(stepdigit, 5);
  EXPECT_EQ(stepcell, 40);
}

TEST_F(Program, AStepBeginsWithFreshPositionsAndAnOpenChangeHandling) {
  put(incellboard);
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
