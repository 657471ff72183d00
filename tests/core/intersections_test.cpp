// Intersections: which one is found, what step, twin and explanation say, paint and delete, and their order.
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

const Said blockrowlesson = {
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
};
const Example blockrow = {
    .name = "BlockRow",
    .tag = "intersections",
    .level = 3,
    .step = frmmain::intersections,
    .twin = frmgenerazione::intersections,
    .held = each({at(1, 1), at(1, 2), at(1, 3), at(2, 3), at(3, 1), at(3, 2), at(3, 3)}, "12356789"),
    .taken = each({at(2, 4), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)}, "4"),
    .hint = {"INTERSEZIONE - nel settore 1 un numero è presente solo nella riga 2",
             "INTERSECTION - in block 1 is present only on row 2"},
    .candidate = painted(each({at(2, 1), at(2, 2)}, "4"), "green"),
    .done = {"eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
             "deleted 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , "},
    .foundbystop = false,
    .log = {{"INTERSEZIONE - nel settore 1 il numero 4 è presente solo nella riga 2",
             "INTERSECTION - in block 1 the number 4 is present only on row 2"},
            {" * eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
             " * deleted 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , "}},
    .lesson = {{.adds = blockrowlesson,
                .candidate = painted(each({at(2, 4), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)}, "4"),
                                     "red", painted(each({at(2, 1), at(2, 2)}, "4"), "green")),
                .left =
                    painted(each({at(2, 4), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)}, "4"), "red")}},
    .closing = {"eliminato il numero 4 da  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , ",
                "deleted the number 4 from  r2c4 ,  r2c5 ,  r2c6 ,  r2c7 ,  r2c8 ,  r2c9 , "},
};

const Said blockcolumnlesson = {
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
};
const Example blockcolumn = {
    .name = "BlockColumn",
    .tag = "intersections",
    .level = 3,
    .step = frmmain::intersections,
    .twin = frmgenerazione::intersections,
    .held = each({at(4, 4), at(4, 5), at(5, 4), at(5, 5), at(5, 6), at(6, 4), at(6, 5)}, "12345689"),
    .taken = each({at(1, 6), at(2, 6), at(3, 6), at(7, 6), at(8, 6), at(9, 6)}, "7"),
    .hint = {"INTERSEZIONE - nel settore 5 un numero è presente solo nella colonna 6",
             "INTERSECTION - in block 5 is present only on column 6"},
    .candidate = painted(each({at(4, 6), at(6, 6)}, "7"), "green"),
    .done = {"eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
             "deleted 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , "},
    .foundbystop = false,
    .log = {{"INTERSEZIONE - nel settore 5 il numero 7 è presente solo nella colonna 6",
             "INTERSECTION - in block 5 the number 7 is present only on column 6"},
            {" * eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
             " * deleted 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , "}},
    .lesson = {{.adds = blockcolumnlesson,
                .candidate = painted(each({at(1, 6), at(2, 6), at(3, 6), at(7, 6), at(8, 6), at(9, 6)}, "7"),
                                     "red", painted(each({at(4, 6), at(6, 6)}, "7"), "green")),
                .left =
                    painted(each({at(1, 6), at(2, 6), at(3, 6), at(7, 6), at(8, 6), at(9, 6)}, "7"), "red")}},
    .closing = {"eliminato il numero 7 da  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , ",
                "deleted the number 7 from  r1c6 ,  r2c6 ,  r3c6 ,  r7c6 ,  r8c6 ,  r9c6 , "},
};

const Said rowblocklesson = {
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
};
const Example rowblock = {
    .name = "RowBlock",
    .tag = "intersections",
    .level = 3,
    .step = frmmain::intersections,
    .twin = frmgenerazione::intersections,
    .held = each({at(8, 1), at(8, 2), at(8, 3), at(8, 7), at(8, 8), at(8, 9)}, "12456789"),
    .taken = each({at(7, 4), at(7, 5), at(7, 6), at(9, 4), at(9, 5), at(9, 6)}, "3"),
    .hint = {"INTERSEZIONE - nella riga 8 un numero è presente solo nel settore 8",
             "INTERSECTION - in row 8 is present only on block 8"},
    .candidate = painted(each({at(8, 4), at(8, 5), at(8, 6)}, "3"), "green"),
    .done = {"eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
             "deleted 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , "},
    .foundbystop = false,
    .log = {{"INTERSEZIONE - nella riga 8 il numero 3  è presente solo nel settore 8",
             "INTERSECTION - in row 8 the number 3 is present only on block 8"},
            {" * eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
             " * deleted 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , "}},
    .lesson = {{.adds = rowblocklesson,
                .candidate = painted(each({at(7, 4), at(7, 5), at(7, 6), at(9, 4), at(9, 5), at(9, 6)}, "3"),
                                     "red", painted(each({at(8, 4), at(8, 5), at(8, 6)}, "3"), "green")),
                .left =
                    painted(each({at(7, 4), at(7, 5), at(7, 6), at(9, 4), at(9, 5), at(9, 6)}, "3"), "red")}},
    .closing = {"eliminato il numero 3 da  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , ",
                "deleted the number 3 from  r7c4 ,  r7c5 ,  r7c6 ,  r9c4 ,  r9c5 ,  r9c6 , "},
};

const Said columnblocklesson = {
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
};
const Example columnblock = {
    .name = "ColumnBlock",
    .tag = "intersections",
    .level = 3,
    .step = frmmain::intersections,
    .twin = frmgenerazione::intersections,
    .held = each({at(1, 9), at(2, 9), at(3, 9), at(5, 9), at(7, 9), at(8, 9), at(9, 9)}, "12345678"),
    .taken = each({at(4, 7), at(4, 8), at(5, 7), at(5, 8), at(6, 7), at(6, 8)}, "9"),
    .hint = {"INTERSEZIONE - nella colonna 9 un numero è presente solo nel settore 6",
             "INTERSECTION - in column 9 is present only on block 6"},
    .candidate = painted(each({at(4, 9), at(6, 9)}, "9"), "green"),
    .done = {"eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
             "deleted 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , "},
    .foundbystop = false,
    .log = {{"INTERSEZIONE - nella colonna 9 il numero 9 è presente solo nel settore 6",
             "INTERSECTION - in column 9 the number 9 is present only in block 6"},
            {" * eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
             " * deleted 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , "}},
    .lesson = {{.adds = columnblocklesson,
                .candidate = painted(each({at(4, 7), at(4, 8), at(5, 7), at(5, 8), at(6, 7), at(6, 8)}, "9"),
                                     "red", painted(each({at(4, 9), at(6, 9)}, "9"), "green")),
                .left =
                    painted(each({at(4, 7), at(4, 8), at(5, 7), at(5, 8), at(6, 7), at(6, 8)}, "9"), "red")}},
    .closing = {"eliminato il numero 9 da  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , ",
                "deleted the number 9 from  r4c7 ,  r4c8 ,  r5c7 ,  r5c8 ,  r6c7 ,  r6c8 , "},
};

EXAMPLES(Intersections, &blockrow, &blockcolumn, &rowblock, &columnblock);

// ---- what is found, and in which order --------------------------------------------------------------------

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
  /// The digit and the cells deleted, as the twin logs them: everything behind " * deleted ".
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
    putmasks(open);
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
