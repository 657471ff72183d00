// Intersections: which one is found, what step, twin and explanation say, paint and delete, and their order.
#include "intersections.h"

#include <gtest/gtest.h>

#include "gradestate.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"

namespace gradino::tests {
namespace {

// An empty board has all candidates; each test takes away what it needs, so that no single is left behind.

struct Case {
  const char* name;
  int digit;
  std::vector<int> takenfrom;  ///< the holder's other cells
  std::vector<int> places;     ///< what stays in the holder
  std::vector<int> victims;
  std::string hintit, hinten, doneit, doneen;
  std::string headit, headen, detailit, detailen;
  std::string lessonit, lessonen, closeit, closeen;
};

const Case blockrow = {
    "BlockRow",
    4,
    {at(1, 1), at(1, 2), at(1, 3), at(2, 3), at(3, 1), at(3, 2), at(3, 3)},
    {at(2, 1), at(2, 2)},
    {at(2, 4), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)},
    "INTERSEZIONE - nel settore 1 un numero è presente solo nella riga 2",
    "INTERSECTION - in block 1 is present only on row 2",
    "eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
    "deleted 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
    "INTERSEZIONE - nel settore 1 il numero 4 è presente solo nella riga 2",
    "INTERSECTION - in block 1 the number 4 is present only on row 2",
    " * eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
    " * deleted 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
    "INTERSEZIONE - SETTORE CONTRO RIGA - LIVELLO 3\r\n"
    "Se in un settore un candidato è presente solo su una riga, allora possiamo eliminare il candidato da tutte "
    "le altre celle della riga\r\n"
    "==============================================\r\n"
    "nel settore 1 il numero 4 è presente solo nella riga 2\r\n"
    "nella riga 2 il numero 4 deve quindi stare obbligatoriamente in una delle celle verdi\r\n"
    "lo possiamo quindi eliminare da r2c4 , r2c5 , r2c6 , r2c7 , r2c8 , r2c9 , ",
    "INTERSECTIONS - LEVEL 3\r\n"
    "If in a block a candidate is present only in one row, then we can delete the candidate from all the other "
    "cells of the same row\r\n"
    "==============================================\r\n"
    "on the block 1 the number 4 is present only on the row 2\r\n"
    "in the row 2 the number 4 is forced in one of green cells\r\n"
    "therefore, we can delete the number from r2c4 , r2c5 , r2c6 , r2c7 , r2c8 , r2c9 , ",
    "eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
    "deleted the number 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
};

const Case blockcolumn = {
    "BlockColumn",
    7,
    {at(4, 4), at(4, 5), at(5, 4), at(5, 5), at(5, 6), at(6, 4), at(6, 5)},
    {at(4, 6), at(6, 6)},
    {at(1, 6), at(2, 6), at(3, 6), at(7, 6), at(8, 6), at(9, 6)},
    "INTERSEZIONE - nel settore 5 un numero è presente solo nella colonna 6",
    "INTERSECTION - in block 5 is present only on column 6",
    "eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
    "deleted 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
    "INTERSEZIONE - nel settore 5 il numero 7 è presente solo nella colonna 6",
    "INTERSECTION - in block 5 the number 7 is present only on column 6",
    " * eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
    " * deleted 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
    "INTERSEZIONE - SETTORE CONTRO COLONNA - LIVELLO 3\r\n"
    "Se in un settore un candidato è presente solo su una colonna, allora possiamo eliminare il candidato da "
    "tutte le altre celle della colonna\r\n"
    "==============================================\r\n"
    "nel settore 5 il numero 7 è presente solo nella colonna 6\r\n"
    "nella colonna 6 il numero 7 deve quindi stare obbligatoriamente in una delle celle verdi\r\n"
    "lo possiamo quindi eliminare da r1c6 , r2c6 , r3c6 , r7c6 , r8c6 , r9c6 , ",
    "INTERSECTIONS - LEVEL 3\r\n"
    "If in a block a candidate is present only on one column, then we can delete the candidate from all the "
    "other cells of the same column\r\n"
    "==============================================\r\n"
    "on the block 5 the number 7 is present only on the column 6\r\n"
    "in the column 6 the number 7 is forced in one of green cells\r\n"
    "therefore, we can delete the number from r1c6 , r2c6 , r3c6 , r7c6 , r8c6 , r9c6 , ",
    "eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
    "deleted the number 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
};

const Case rowblock = {
    "RowBlock",
    3,
    {at(8, 1), at(8, 2), at(8, 3), at(8, 7), at(8, 8), at(8, 9)},
    {at(8, 4), at(8, 5), at(8, 6)},
    {at(7, 4), at(7, 5), at(7, 6), at(9, 4), at(9, 5), at(9, 6)},
    "INTERSEZIONE - nella riga 8 un numero è presente solo nel settore 8",
    "INTERSECTION - in row 8 is present only on block 8",
    "eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
    "deleted 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
    "INTERSEZIONE - nella riga 8 il numero 3  è presente solo nel settore 8",
    "INTERSECTION - in row 8 the number 3 is present only on block 8",
    " * eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
    " * deleted 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
    "INTERSEZIONE - RIGA CONTRO SETTORE - LIVELLO 3\r\n"
    "Se in una riga un candidato è presente solo su un settore, allora possiamo eliminare il candidato da tutte "
    "le altre celle del settore\r\n"
    "==============================================\r\n"
    "nella riga 8 il numero 3 è presente solo nel settore 8\r\n"
    "nel settore 8 il numero 3 deve quindi stare obbligatoriamente in una delle celle verdi\r\n"
    "lo possiamo quindi eliminare da r7c4 , r7c5 , r7c6 , r9c4 , r9c5 , r9c6 , ",
    "INTERSECTIONS - LEVEL 3\r\n"
    "If in a row a candidate is present only on one block, then we can delete the candidate from all the other "
    "cells of the same block\r\n"
    "==============================================\r\n"
    "on the row 8 the number 3 is present only on the block 8\r\n"
    "in the block 8 the number 3 is forced in one of green cells\r\n"
    "therefore, we can delete the number from r7c4 , r7c5 , r7c6 , r9c4 , r9c5 , r9c6 , ",
    "eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
    "deleted the number 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
};

const Case columnblock = {
    "ColumnBlock",
    9,
    {at(1, 9), at(2, 9), at(3, 9), at(5, 9), at(7, 9), at(8, 9), at(9, 9)},
    {at(4, 9), at(6, 9)},
    {at(4, 7), at(4, 8), at(5, 7), at(5, 8), at(6, 7), at(6, 8)},
    "INTERSEZIONE - nella colonna 9 un numero è presente solo nel settore 6",
    "INTERSECTION - in column 9 is present only on block 6",
    "eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
    "deleted 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
    "INTERSEZIONE - nella colonna 9 il numero 9 è presente solo nel settore 6",
    "INTERSECTION - in column 9 the number 9 is present only in block 6",
    " * eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
    " * deleted 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
    "INTERSEZIONE - COLONNA CONTRO SETTORE - LIVELLO 3\r\n"
    "Se in una colonna un candidato è presente solo su un settore, allora possiamo eliminare il candidato da "
    "tutte le altre celle del settore\r\n"
    "==============================================\r\n"
    "nella colonna 9 il numero 9 è presente solo nel settore 6\r\n"
    "nel settore 6 il numero 9 deve quindi stare obbligatoriamente in una delle celle verdi\r\n"
    "lo possiamo quindi eliminare da r4c7 , r4c8 , r5c7 , r5c8 , r6c7 , r6c8 , ",
    "INTERSECTIONS - LEVEL 3\r\n"
    "If in a column a candidate is present only on one block, then we can delete the candidate from all the "
    "other cells of the same block\r\n"
    "==============================================\r\n"
    "on the column 9 the number 9 is present only on the block 6\r\n"
    "in the block 6 the number 9 is forced in one of green cells\r\n"
    "therefore, we can delete the number from r4c7 , r4c8 , r5c7 , r5c8 , r6c7 , r6c8 , ",
    "eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
    "deleted the number 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
};

Paint marks(const Case& one, const std::vector<int>& at, const char* colour) {
  Paint paint;
  for (int cell : at) paint[cell * 10 + one.digit] = colour;
  return paint;
}

class EachIntersection : public Program, public testing::WithParamInterface<std::tuple<const Case*, int>> {
 protected:
  EachIntersection() {
    speak(std::get<int>(GetParam()));
    put(emptyboard);
    take(one().takenfrom);
    before = theboard();
    take(one().victims);
    after = theboard();
    put(emptyboard);
    take(one().takenfrom);
  }
  void take(const std::vector<int>& from) {
    for (int cell : from) eliminate(cell, std::to_string(one().digit));
  }
  static const Case& one() { return *std::get<const Case*>(GetParam()); }
  static const std::string& in(const std::string& it, const std::string& en) {
    return std::get<int>(GetParam()) == italian ? it : en;
  }

  Frame shownframe() const {
    return {.tag = "intersections",
            .hint = in(one().hintit, one().hinten),
            .number = "",
            .activity = {},
            .Text1 = {},
            .Text2 = {},
            .candidate = marks(one(), one().places, "green")};
  }
  Frame arguedframe() const {
    Frame frame = shownframe();
    frame.activity = in(one().lessonit, one().lessonen);
    frame.candidate.merge(marks(one(), one().victims, "red"));
    return frame;
  }
  void expectnopaint() const {
    const Frame now = look();
    EXPECT_EQ(now.Text1, Paint{});
    EXPECT_EQ(now.Text2, Paint{});
    EXPECT_EQ(now.candidate, Paint{});
  }

  Board before, after;
};

TEST_P(EachIntersection, IsTheNextStepShowsItsPlacesAndOnGoDeletes) {
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], shownframe());
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  EXPECT_EQ(visiblemarks(one().victims[0]), candstr(one().victims[0]));
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(EachIntersection, AStopDeletesNothing) {
  foundflag = true;
  player.script = {stop};
  player.event(frmmain::intersections);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(frmmain::txthint.text, in(one().hintit, one().hinten));
  EXPECT_FALSE(foundflag);
  expectnopaint();
}

TEST_P(EachIntersection, TwinLogsCountsAndDeletesWithoutABox) {
  frmmain::txthint.text = "as it was";
  steptag = "as it was";
  frmgenerazione::intersections();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\n" + in(one().headit, one().headen) + "\r\n" + in(one().detailit, one().detailen));
  EXPECT_EQ(logcount, 2);
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  std::string commas;
  for (int mask : before.candmask) commas += std::to_string(mask) + ",";
  EXPECT_EQ(logcands(1), commas);
  EXPECT_EQ(logcands(2), "");
  EXPECT_EQ(runninglevel, 3);
  EXPECT_EQ(levelcount(3), 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_EQ(steptag, "as it was");
  EXPECT_EQ(visiblemarks(one().victims[0]), "123456789");
  expectnopaint();
}

TEST_P(EachIntersection, TwinInALongJobWritesBothLinesButCountsTheDetailAlone) {
  const Job job("genera");
  runninglevel = 7;
  frmgenerazione::intersections();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\n" + in(one().headit, one().headen) + "\r\n" + in(one().detailit, one().detailen));
  EXPECT_EQ(logcount, 1);
  EXPECT_EQ(logcands(0), "");
  EXPECT_EQ(logcands(1), "");
  EXPECT_EQ(runninglevel, 7);
  EXPECT_EQ(levelcount(3), 1);
}

TEST_P(EachIntersection, ExplanationArguesInRedAndItsGoCarriesTheStepOut) {
  player.script = {help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[1], arguedframe());
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  expectnopaint();
}

TEST_P(EachIntersection, ExplanationClosesWithTheRedCellsAndAWhiteBoard) {
  player.script = {[&] {
                     help();
                     EXPECT_EQ(frmmain::txthint.text, in(one().closeit, one().closeen));
                     EXPECT_EQ(theboard(), before);
                     expectnopaint();
                   },
                   go};
  player.event(frmmain::intersections);
  EXPECT_TRUE(player.script.empty());
}

TEST_P(EachIntersection, AStopInTheExplanationStopsTheStepAndLeavesTheWindowOpen) {
  player.script = {help, stop};
  player.event(frmmain::intersections);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_TRUE(frmactivity::visible);
  EXPECT_EQ(look().candidate, marks(one(), one().victims, "red"));
  EXPECT_EQ(theboard(), before);
  EXPECT_FALSE(foundflag);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachIntersection,
                         testing::Combine(testing::Values(&blockrow, &blockcolumn, &rowblock, &columnblock),
                                          testing::Values(english, italian)),
                         [](auto& p) {
                           return std::string(std::get<0>(p.param)->name) +
                                  (std::get<1>(p.param) == english ? "English" : "Italian");
                         });

// ---- what is found, and in which order
// ----------------------------------------------------------------------

class Intersections : public Program {
 protected:
  Intersections() { put(emptyboard); }

  /// In a house of nine cells the digit stays at some positions only.
  void keep(int digit, const std::vector<int>& house, const std::string& positions) {
    for (int p = 0; p < 9; ++p)
      if (const int cell = house[static_cast<std::size_t>(p)];
          positions.find(static_cast<char>('0' + p)) == std::string::npos && hascandidate(cell, digit))
        eliminate(cell, std::to_string(digit));
  }
  // 1-based, as they are read to the user
  static std::vector<int> row(int number) {
    std::vector<int> found;
    for (int p = 1; p <= 9; ++p) found.push_back(at(number, p));
    return found;
  }
  static std::vector<int> column(int number) {
    std::vector<int> found;
    for (int p = 1; p <= 9; ++p) found.push_back(at(p, number));
    return found;
  }
  static std::vector<int> block(int number) {
    std::vector<int> found;
    for (int p = 0; p < 9; ++p)
      found.push_back(at((number - 1) / 3 * 3 + p / 3 + 1, (number - 1) % 3 * 3 + p % 3 + 1));
    return found;
  }

  /// The hint of the one wait, or nothing.
  std::string step() {
    player.script = {go};
    player.frames.clear();
    player.event(frmmain::intersections);
    return player.frames.empty() ? "" : player.frames[0].hint;
  }
  /// The digit and the cells deleted, as the twin logs them: everything behind " * deleted ".
  static std::string twin() {
    Frmlog::Text3.text.clear();
    frmgenerazione::intersections();
    const std::size_t detail = Frmlog::Text3.text.find(" * deleted ");
    return detail == std::string::npos ? "" : Frmlog::Text3.text.substr(detail + 11);
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

TEST_F(Intersections, AStepKeepsDigitAndBothHouses) {
  curcell = 50;
  keep(4, block(6), "34");
  step();
  EXPECT_EQ(curdigit, 4);
  EXPECT_EQ(curblock, 5);
  EXPECT_EQ(currow, 4);
  EXPECT_EQ(curcell, 50);
}

TEST_F(Intersections, GradingInAnOpenWaitDoesNotChangeWhatIsExplained) {
  keep(4, block(1), "34");
  keep(5, row(9), "01");
  const std::vector<int> open = masks();
  const auto grade = [&] {
    frmgenerazione::intersections();
    frmgenerazione::intersections();
    for (int cell = 0; cell < 81; ++cell) candmask(cell) = open[static_cast<std::size_t>(cell)];
    rebuildcandstr();
    rebuildpositions();
  };
  player.script = {grade, help, stop};
  player.event(frmmain::intersections);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_NE(
      player.frames[2].activity.value_or("").find("on the block 1 the number 4 is present only on the row 2"),
      std::string::npos);
}

}  // namespace
}  // namespace gradino::tests
