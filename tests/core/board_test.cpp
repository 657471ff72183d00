// The tables of the board and their rebuilds.
#include <random>
#include <set>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "faults.h"
#include "grid.h"
#include "player.h"
#include "tables.h"

namespace gradino::tests {
namespace {

// ---- constants --------------------------------------------------------------------------------------------

TEST_F(Program, RowColumnAndBlockOfEveryCellAreOneBased) {
  for (int row = 1; row <= 9; ++row)
    for (int col = 1; col <= 9; ++col) {
      EXPECT_EQ(cellrow(at(row, col)), row);
      EXPECT_EQ(cellcol(at(row, col)), col);
      EXPECT_EQ(cellblock(at(row, col)), (row - 1) / 3 * 3 + (col - 1) / 3 + 1);
    }
  EXPECT_EQ(cellrow(81), 0);
  EXPECT_EQ(cellcol(81), 0);
  EXPECT_EQ(cellblock(81), 0);
}

TEST_F(Program, BlockCellsGoRowByRowInsideTheBlock) {
  const std::vector<std::vector<int>> expected = {
      {0, 1, 2, 9, 10, 11, 18, 19, 20},     {3, 4, 5, 12, 13, 14, 21, 22, 23},
      {6, 7, 8, 15, 16, 17, 24, 25, 26},    {27, 28, 29, 36, 37, 38, 45, 46, 47},
      {30, 31, 32, 39, 40, 41, 48, 49, 50}, {33, 34, 35, 42, 43, 44, 51, 52, 53},
      {54, 55, 56, 63, 64, 65, 72, 73, 74}, {57, 58, 59, 66, 67, 68, 75, 76, 77},
      {60, 61, 62, 69, 70, 71, 78, 79, 80}};
  for (int block = 0; block < 9; ++block)
    for (int position = 0; position < 9; ++position)
      EXPECT_EQ(blockcells(block, position), expected.at(block).at(position)) << block << ' ' << position;
}

TEST_F(Program, BitsOfTheDigits) {
  const int expected[] = {0, 2, 4, 8, 16, 32, 64, 128, 256, 512};
  for (int digit = 0; digit <= 9; ++digit) EXPECT_EQ(bitvalue(digit), expected[digit]);
}

TEST(Colours, AreTheseNineAndNoOthers) {
  const std::vector<std::tuple<std::string_view, Colour, Colour>> expected = {
      {"white", white, 16777215},
      {"yellow", yellow, 65535},
      {"red", red, 255},
      {"textcolor", textcolor, -2147483640},
      {"green", green, 65280},
      {"cyan", cyan, 16776960},
      {"magenta", magenta, 16711935},
      {"lightblue", lightblue, 16744576},
      {"orange", orange, 33023}};
  for (const auto& [name, colour, value] : expected) {
    EXPECT_EQ(colour, value) << name;
    EXPECT_EQ(colourname(value), name);
  }
  EXPECT_EQ(colourname(1), "");
}

TEST_F(Program, TablesHaveTheirBoundsAndNoMore) {
  EXPECT_NO_THROW(cellvalue(81));
  EXPECT_NO_THROW(candmask(107));
  EXPECT_NO_THROW(candstr(81));
  EXPECT_NO_THROW(usedmask(107));
  EXPECT_NO_THROW(givens(81));
  EXPECT_NO_THROW(solutiontext(81));
  EXPECT_NO_THROW(rowpos(9, 9));
  EXPECT_THROW(cellvalue(82), Fault);
  EXPECT_THROW(candmask(108), Fault);
  EXPECT_THROW(candstr(82), Fault);
  EXPECT_THROW(usedmask(108), Fault);
  EXPECT_THROW(givens(82), Fault);
  EXPECT_THROW(solutiontext(82), Fault);
  EXPECT_THROW(cellvalue(-1), Fault);
  EXPECT_THROW(bitvalue(10), Fault);
  EXPECT_THROW(blockcells(9, 0), Fault);
  EXPECT_THROW(blockcells(0, 9), Fault);
  for (auto* table : {&rowpos, &colpos, &blockpos}) {
    EXPECT_THROW((*table)(10, 0), Fault);
    EXPECT_THROW((*table)(0, 10), Fault);
    EXPECT_THROW((*table)(-1, 0), Fault);
  }
}

TEST_F(Program, AFaultNamesTableIndexBoundsAndPlace) {
  try {
    cellvalue(82);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind, Fault::Kind::bounds);
    EXPECT_EQ(fault.name, "cellvalue");
    EXPECT_EQ(fault.value, 82);
    EXPECT_EQ(fault.low, 0);
    EXPECT_EQ(fault.high, 81);
    EXPECT_EQ(fault.place, "TestBody");
    EXPECT_EQ(
        faulttext(fault),
        "An internal limit of the program was reached. The command was ended; the board stays, and the program "
        "goes on. (table cellvalue 0 to 81, index 82, in TestBody)");
    lingua = italian;
    EXPECT_EQ(
        faulttext(fault),
        "È stato raggiunto un limite interno del programma. Il comando è stato interrotto; lo schema resta e il "
        "programma continua. (tabella cellvalue da 0 a 81, indice 82, in TestBody)");
  }
}

TEST(Counters, RefuseWhatTheirWidthCannotHold) {
  Byte byte{"b"};
  byte = 255;
  EXPECT_THROW(byte += 1, Fault);
  EXPECT_EQ(byte, 255);
  byte = 0;
  EXPECT_THROW(byte -= 1, Fault);
  EXPECT_EQ(byte, 0);
  Int16 word{"w"};
  word = 32767;
  EXPECT_THROW(word += 1, Fault);
  word = -32768;
  EXPECT_THROW(word -= 1, Fault);
  EXPECT_EQ(word, -32768);
}

// ---- rebuilds ---------------------------------------------------------------------------------------------

/// usedmask as it is defined, cell by cell from what the cell's houses hold.
std::vector<int> naiveusedmask() {
  std::vector<int> used(108, 0);
  for (int cell = 0; cell < 81; ++cell) {
    const int bit = cellvalue(cell) == 0 ? 0 : 1 << cellvalue(cell);
    used[81 + cell / 9] |= bit;
    used[90 + cell % 9] |= bit;
    used[99 + cell / 27 * 3 + cell % 9 / 3] |= bit;
  }
  for (int cell = 0; cell < 81; ++cell)
    used[cell] = used[81 + cell / 9] | used[90 + cell % 9] | used[99 + cell / 27 * 3 + cell % 9 / 3];
  return used;
}

RC_GTEST_FIXTURE_PROP(Program, UsedMaskIsTheUnionOfWhatTheHousesHold, ()) {
  const auto digits = *rc::gen::container<std::vector<int>>(81, rc::gen::inRange(0, 10));
  for (int cell = 0; cell < 81; ++cell) cellvalue(cell) = digits[cell];
  rebuildusedmask();
  const std::vector<int> expected = naiveusedmask();
  for (int slot = 0; slot < 108; ++slot) RC_ASSERT(usedmask(slot) == expected[slot]);
}

RC_GTEST_FIXTURE_PROP(Program, PositionsAreThe729TestsOfTheMasks, ()) {
  const auto random = *rc::gen::container<std::vector<int>>(81, rc::gen::inRange(0, 512));
  for (int cell = 0; cell < 81; ++cell) candmask(cell) = random[cell] * 2;
  rebuildpositions();
  for (int digit = 1; digit <= 9; ++digit)
    for (int house = 0; house < 9; ++house) {
      std::string row, column, block;
      for (int p = 0; p < 9; ++p) {
        const auto open = [&](int cell) { return (random[cell] * 2 >> digit & 1) != 0; };
        const char c = static_cast<char>('0' + p);
        if (open(house * 9 + p)) row += c;
        if (open(p * 9 + house)) column += c;
        if (open(house % 3 * 3 + house / 3 * 27 + p / 3 * 9 + p % 3)) block += c;
      }
      RC_ASSERT(rowpos(digit, house).text() == row);
      RC_ASSERT(colpos(digit, house).text() == column);
      RC_ASSERT(blockpos(digit, house).text() == block);
    }
  for (int i = 0; i <= 9; ++i)
    for (auto* table : {&rowpos, &colpos, &blockpos}) {
      RC_ASSERT((*table)(0, i).empty());
      RC_ASSERT((*table)(i, 9).empty());
    }
}

RC_GTEST_PROP(Positions, AreAShortAscendingString, (const std::set<int>& raw)) {
  std::string text;
  Positions positions;
  std::set<int> places;
  for (int n : raw) places.insert((n % 9 + 9) % 9);
  const std::vector<int> falling(places.rbegin(), places.rend());
  for (int p : falling) positions.add(p);
  for (int p : places) text += static_cast<char>('0' + p);
  RC_ASSERT(positions.text() == text);
  RC_ASSERT(positions.length() == static_cast<int>(text.size()));
  RC_ASSERT(positions.empty() == text.empty());
  for (int p = 0; p < 9; ++p) RC_ASSERT(positions.contains(p) == (places.count(p) == 1));
  for (std::size_t k = 0; k < text.size(); ++k) RC_ASSERT(positions[static_cast<int>(k)] == text[k] - '0');
  if (!text.empty()) {
    RC_ASSERT(positions.first() == text.front() - '0');
    RC_ASSERT(positions.last() == text.back() - '0');
  }
}

RC_GTEST_FIXTURE_PROP(Program, CandidatesOnlyNarrowAndTheirTextFollows, ()) {
  const auto digits = *rc::gen::container<std::vector<int>>(
      81, rc::gen::weightedOneOf<int>({{3, rc::gen::just(0)}, {1, rc::gen::inRange(1, 10)}}));
  const auto random = *rc::gen::container<std::vector<int>>(81, rc::gen::inRange(0, 512));
  for (int cell = 0; cell < 81; ++cell) {
    cellvalue(cell) = digits[cell];
    candmask(cell) = random[cell] * 2;
  }
  rebuildusedmask();
  rebuildcandstr();
  const std::vector<int> used = naiveusedmask();
  for (int cell = 0; cell < 81; ++cell) {
    RC_ASSERT(candmask(cell) == (random[cell] * 2 & ~used[cell]));
    std::string text;
    for (int digit = 1; digit <= 9; ++digit)
      if (candmask(cell) >> digit & 1) text += static_cast<char>('0' + digit);
    RC_ASSERT(candstr(cell) == text);
  }
}

TEST_F(Program, AnEmptyBoardHasAllCandidatesEverywhere) {
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
  rebuildpositions();
  for (int slot = 0; slot <= 107; ++slot) EXPECT_EQ(usedmask(slot), 0) << slot;
  for (int cell = 0; cell < 81; ++cell) {
    EXPECT_EQ(candmask(cell), 1022);
    EXPECT_EQ(candstr(cell), "123456789");
  }
  for (int digit = 1; digit <= 9; ++digit)
    for (int house = 0; house < 9; ++house) {
      EXPECT_EQ(rowpos(digit, house).text(), "012345678");
      EXPECT_EQ(colpos(digit, house).text(), "012345678");
      EXPECT_EQ(blockpos(digit, house).text(), "012345678");
    }
}

TEST_F(Program, RefreshBringsBackEveryCandidateButLeavesTheTextToTheNextRebuild) {
  put(with({{at(1, 2), '5'}}));
  eliminate(at(1, 1), "19");
  rebuildcandstr();
  EXPECT_EQ(candstr(at(1, 1)), "234678");
  refreshcandidates();
  EXPECT_EQ(candmask(at(1, 1)), 1022 - 32);
  EXPECT_EQ(candmask(at(1, 2)), 0);
  EXPECT_EQ(candstr(at(1, 1)), "234678");
  rebuildcandstr();
  EXPECT_EQ(candstr(at(1, 1)), "12346789");
}

TEST_F(Program, ACellWithAllCandidatesEliminatedLooksFilledByItsMask) {
  put(emptyboard);
  eliminate(40, "123456789");
  EXPECT_EQ(candmask(40), 0);
  EXPECT_EQ(candstr(40), "");
  EXPECT_EQ(cellvalue(40), 0);
  EXPECT_EQ(visiblemarks(40), "");
}

TEST_F(Program, ADigitWithoutPlaceInAHouseHasTheEmptyStringInItsThreeViews) {
  put(with({{at(5, 5), '7'}}));
  EXPECT_EQ(rowpos(7, 4).text(), "");
  EXPECT_EQ(colpos(7, 4).text(), "");
  EXPECT_EQ(blockpos(7, 4).text(), "");
  EXPECT_EQ(rowpos(7, 3).text(), "012678");
  EXPECT_EQ(colpos(7, 3).text(), "012678");
  EXPECT_EQ(blockpos(7, 3).text(), "012678");
}

TEST_F(Program, ADeletionReachesThePositionsAtTheNextRebuildOnly) {
  put(emptyboard);
  EXPECT_TRUE(deletecandidate(at(2, 3), 4));
  EXPECT_EQ(rowpos(4, 1).text(), "012345678");
  EXPECT_EQ(colpos(4, 2).text(), "012345678");
  EXPECT_EQ(blockpos(4, 0).text(), "012345678");
  rebuildpositions();
  EXPECT_EQ(rowpos(4, 1).text(), "01345678");
  EXPECT_EQ(colpos(4, 2).text(), "02345678");
  EXPECT_EQ(blockpos(4, 0).text(), "01234678");
}

TEST_F(Program, DeletingACandidateTwiceDoesNotBringItBack) {
  put(emptyboard);
  EXPECT_TRUE(deletecandidate(0, 4));
  EXPECT_FALSE(deletecandidate(0, 4));
  EXPECT_EQ(candmask(0), 1022 - 16);
  EXPECT_FALSE(hascandidate(0, 4));
  EXPECT_TRUE(hascandidate(0, 5));
}

TEST_F(Program, TwoEqualDigitsInAHouseSetTheBitOnce) {
  put(with({{at(1, 1), '3'}, {at(1, 9), '3'}}));
  EXPECT_EQ(usedmask(81), 8);
  EXPECT_EQ(filledcount, 2);
}

TEST_F(Program, AValueThatIsNoDigitIsAFault) {
  cellvalue(30) = 10;
  EXPECT_THROW(rebuildusedmask(), Fault);
}

// ---- placing ----------------------------------------------------------------------------------------------

TEST_F(Program, PlacingByTheBoxBringsAllTablesUpToDate) {
  put(emptyboard);
  writetext1(at(1, 1), "5");
  EXPECT_EQ(cellvalue(0), 5);
  EXPECT_EQ(candmask(0), 0);
  EXPECT_EQ(candstr(0), "");
  EXPECT_EQ(filledcount, 1);
  EXPECT_EQ(frmmain::txtesposti.text, "1");
  EXPECT_EQ(frmmain::txtvuoti.text, "80");
  EXPECT_EQ(usedmask(81), 32);
  EXPECT_EQ(candstr(at(1, 9)), "12346789");
  EXPECT_EQ(visiblemarks(at(1, 9)), "12346789");
  EXPECT_EQ(rowpos(5, 0).text(), "");
  EXPECT_EQ(rowpos(5, 1).text(), "345678");
}

TEST_F(Program, PlacingSilentlyTouchesNoBox) {
  put(emptyboard);
  frmmain::txtesposti.text = "as it was";
  placesilently(at(1, 1), 5);
  EXPECT_EQ(cellvalue(0), 5);
  EXPECT_EQ(candmask(0), 0);
  EXPECT_EQ(filledcount, 1);
  EXPECT_EQ(candstr(at(1, 9)), "12346789");
  EXPECT_EQ(rowpos(5, 1).text(), "345678");
  EXPECT_EQ(boxtexts(), emptyboard);
  EXPECT_EQ(visiblemarks(at(1, 9)), "123456789");
  EXPECT_EQ(frmmain::txtesposti.text, "as it was");
}

TEST_F(Program, PlacingQuicklyLeavesWhatTheRebuildsWouldLeave) {
  std::mt19937 chance(7);
  const auto below = [&](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(chance);
  };
  int placed = 0;
  for (int board = 0; board < 60; ++board) {
    put(emptyboard);
    for (int n = 0; n < 81; ++n) {
      const int cell = static_cast<int>(below(81));
      if (candstr(cell).empty()) continue;
      if (below(3) == 0) {
        deletecandidate(cell, candstr(cell)[below(candstr(cell).size())] - '0');
        rebuildcandstr();
        rebuildpositions();
        continue;
      }
      // One digit in ten clashes with another: the tables hold that too.
      const int digit =
          below(10) == 0 ? static_cast<int>(below(9)) + 1 : candstr(cell)[below(candstr(cell).size())] - '0';
      const Board before = theboard();
      placesilently(cell, digit);
      const Board slowly = theboard();
      cellvalue(cell) = 0;
      filledcount = before.filledcount;
      for (int c = 0; c < cellcount; ++c) candmask(c) = before.candmask[static_cast<std::size_t>(c)];
      rebuildusedmask();
      rebuildcandstr();
      rebuildpositions();
      ASSERT_EQ(theboard(), before);
      placequickly(cell, digit);
      ASSERT_EQ(theboard(), slowly);
      placed += 1;
    }
  }
  EXPECT_GT(placed, 1000);
}

TEST_F(Program, ClearingADigitForgetsTheEliminationsOfThatCellOnly) {
  put(with({{at(1, 1), '5'}, {at(1, 2), '6'}}));
  eliminate(at(1, 3), "12");
  eliminate(at(9, 9), "34");
  writetext1(at(1, 3), "9");
  writetext1(at(1, 3), "");
  EXPECT_EQ(candstr(at(1, 3)), "1234789");
  EXPECT_EQ(candstr(at(9, 9)), "1256789");
  // 9 was taken from the cells that saw it, and typing never brings a candidate back to another cell
  EXPECT_EQ(candstr(at(1, 4)), "123478");
}

TEST_F(Program, OverwritingADigitCountsOneMoreFilledCellBeyond81) {
  put(fullboard);
  EXPECT_EQ(filledcount, 81);
  writetext1(0, "9");
  EXPECT_EQ(filledcount, 82);
  EXPECT_EQ(frmmain::txtesposti.text, "82");
  EXPECT_EQ(frmmain::txtvuoti.text, "-1");
}

TEST_F(Program, TheSameTextIsNoChange) {
  put(with({{0, '5'}}));
  eliminate(1, "1");
  const Board before = theboard();
  writetext1(0, "5");
  writetext1(1, "");
  EXPECT_EQ(theboard(), before);
}

TEST_F(Program, WhileSuppressedTheBoxChangesAlone) {
  put(emptyboard);
  const Board before = theboard();
  suppresschange = true;
  writetext1(0, "5");
  Board after = theboard();
  EXPECT_EQ(after.text1.substr(0, 2), "5.");
  after.text1 = before.text1;
  EXPECT_EQ(after, before);
}

TEST_F(Program, RestoringGivensClearsEntriesAndEliminations) {
  const std::string puzzle = with({{0, '5'}, {80, '6'}});
  put(puzzle);
  const Board before = theboard();
  writetext1(40, "7");
  eliminate(1, "12");
  restoregivens();
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(visiblemarks(1), "12346789");
  EXPECT_FALSE(suppresschange);
}

// ---- numbers ----------------------------------------------------------------------------------------------

TEST(LeadingNumber, TakesDigitsFromTheFrontAndNothingElse) {
  EXPECT_EQ(leadingnumber(""), 0);
  EXPECT_EQ(leadingnumber("5"), 5);
  EXPECT_EQ(leadingnumber("  42x7"), 42);
  EXPECT_EQ(leadingnumber("x5"), 0);
  EXPECT_EQ(leadingnumber("-5"), 0);
  EXPECT_EQ(leadingnumber("   "), 0);
  EXPECT_EQ(leadingnumber("2147483647"), 2147483647);
  EXPECT_THROW(leadingnumber("2147483648"), Fault);
  EXPECT_THROW(leadingnumber(std::string(400, '9')), Fault);
}

}  // namespace
}  // namespace gradino::tests
