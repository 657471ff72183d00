// Naked and hidden pairs: which one is found, what step, twin and explanation say, paint and do, and what a
// stop leaves behind.
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

const Said nakedpairrule = {
    "DOPPIA NUDA - LIVELLO 4\r\n"
    "Se due celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi due candidati, allora "
    "possiamo eliminare i due candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n",
    "NAKED PAIR - LEVEL 4\r\n"
    "If two cells in a house (block, row, column), contain exactly the same two candidates, then we can delete "
    "the two candidates from all the other cells of the house\r\n"
    "==============================================\r\n",
};

const Said nakedrowlesson = {
    "nella riga 1 le celle r1c2 e r1c7 (colorate in giallo)\r\n"
    "contengono solamente 47\r\n"
    "Ne consegue che nella riga 1 i numeri 4 e 7 devono stare obbligatoriamente in una delle due celle gialle\r\n"
    "possiamo quindi eliminare i due candidati da ogni altra cella della riga 1\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: "
    "4 da r1c1 , 4 da r1c5 , 7 da r1c5 , 7 da r1c9 , ",
    "in the row 1 the yellow cells r1c2 and r1c7\r\n"
    "contain only 47\r\n"
    "therefore in the row 1 the numbers 4 and 7 are forced in one of the two yellow cells\r\n"
    "we can delete the two candidates from any other cell of the row 1\r\n"
    "in our case we can delete them from red cells: "
    "4 from r1c1 , 4 from r1c5 , 7 from r1c5 , 7 from r1c9 , ",
};
const Example nakedrow = {
    .name = "NakedInRow",
    .tag = "nakedpair",
    .level = 4,
    .step = frmmain::nakedpair,
    .twin = frmgenerazione::nakedpair,
    .held = {{at(1, 2), "47"},
             {at(1, 7), "47"},
             {at(1, 1), "12345689"},
             {at(1, 3), "1235689"},
             {at(1, 4), "1235689"},
             {at(1, 6), "1235689"},
             {at(1, 8), "1235689"},
             {at(1, 9), "12356789"}},
    .taken = {{at(1, 1), "4"}, {at(1, 5), "47"}, {at(1, 9), "7"}},
    .hint = {"COPPIA NUDA 47 nelle celle r1c2 , r1c7", "NAKED PAIR 47, cells r1c2 , r1c7"},
    .Text2 = {{at(1, 2), "yellow"}, {at(1, 7), "yellow"}},
    .done = {"eliminato 4 from r1c1 , 4 from r1c5 , 7 from r1c5 , 7 from r1c9 , ",
             "deleted 4 from r1c1 , 4 from r1c5 , 7 from r1c5 , 7 from r1c9 , "},
    .foundbystop = false,
    .log = {{"COPPIA NUDA 47 , celle r1c2 , r1c7", "NAKED PAIR 47 ,  cells r1c2 , r1c7"},
            {" * eliminato 4 from r1c1 , 4 from r1c5 , 7 from r1c5 , 7 from r1c9 , ",
             " * deleted 4 from r1c1 , 4 from r1c5 , 7 from r1c5 , 7 from r1c9 , "}},
    .lesson = {{.adds = nakedpairrule + nakedrowlesson,
                .Text2 = {{at(1, 2), "yellow"}, {at(1, 7), "yellow"}},
                .candidate = painted({{at(1, 1), "4"}, {at(1, 5), "47"}, {at(1, 9), "7"}}, "red"),
                .left = painted({{at(1, 1), "4"}, {at(1, 5), "47"}, {at(1, 9), "7"}}, "red")}},
    .closing = {"eliminato i numeri 4 e 7 da  r1c1 ,  r1c5 ,  r1c9 , ",
                "deleted  numbers 4 and 7 from  r1c1 ,  r1c5 ,  r1c9 , "},
};

const Said nakedcolumnlesson = {
    "nella colonna 6 le celle r2c6 e r9c6 (colorate in giallo)\r\n"
    "contengono solamente 29\r\n"
    "Ne consegue che nella colonna 6 i numeri 2 e 9 devono stare obbligatoriamente in una delle due celle "
    "gialle\r\n"
    "possiamo quindi eliminare i due candidati da ogni altra cella della colonna 6\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: 2 da r4c6 , 9 da r4c6 , 9 da r7c6 , ",
    "in the column 6 the yellow cells r2c6 and r9c6\r\n"
    "contain only 29\r\n"
    "therefore in the column 6 the numbers 2 and 9 are forced in one of the two yellow cells\r\n"
    "we can delete the two candidates from any other cell of the column 6\r\n"
    "in our case we can delete them from red cells: 2 from r4c6 , 9 from r4c6 , 9 from r7c6 , ",
};
const Example nakedcolumn = {
    .name = "NakedInColumn",
    .tag = "nakedpair",
    .level = 4,
    .step = frmmain::nakedpair,
    .twin = frmgenerazione::nakedpair,
    .held = {{at(2, 6), "29"},
             {at(9, 6), "29"},
             {at(1, 6), "1345678"},
             {at(3, 6), "1345678"},
             {at(5, 6), "1345678"},
             {at(6, 6), "1345678"},
             {at(7, 6), "13456789"},
             {at(8, 6), "1345678"}},
    .taken = {{at(4, 6), "29"}, {at(7, 6), "9"}},
    .hint = {"COPPIA NUDA 29 nelle celle r2c6 , r9c6", "NAKED PAIR 29, cells r2c6 , r9c6"},
    .Text2 = {{at(2, 6), "yellow"}, {at(9, 6), "yellow"}},
    .done = {"eliminato 2 from r4c6 , 9 from r4c6 , 9 from r7c6 , ",
             "deleted 2 from r4c6 , 9 from r4c6 , 9 from r7c6 , "},
    .foundbystop = false,
    .log = {{"COPPIA NUDA 29 , celle r2c6 , r9c6", "NAKED PAIR 29 ,  cells r2c6 , r9c6"},
            {" * eliminato 2 from r4c6 , 9 from r4c6 , 9 from r7c6 , ",
             " * deleted 2 from r4c6 , 9 from r4c6 , 9 from r7c6 , "}},
    .lesson = {{.adds = nakedpairrule + nakedcolumnlesson,
                .Text2 = {{at(2, 6), "yellow"}, {at(9, 6), "yellow"}},
                .candidate = painted({{at(4, 6), "29"}, {at(7, 6), "9"}}, "red"),
                .left = painted({{at(4, 6), "29"}, {at(7, 6), "9"}}, "red")}},
    .closing = {"eliminato i numeri 2 e 9 da  r4c6 ,  r7c6 , ",
                "deleted  numbers 2 and 9 from  r4c6 ,  r7c6 , "},
};

const Said nakedblocklesson = {
    "nel settore 9 le celle r7c8 e r9c7 (colorate in giallo)\r\n"
    "contengono solamente 15\r\n"
    "Ne consegue che nel settore 9 i numeri 1 e 5 devono stare obbligatoriamente in una delle due celle gialle\r\n"
    "possiamo quindi eliminare i due candidati da ogni altra cella del settore 9\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: "
    "1 da r7c7 , 1 da r8c8 , 5 da r8c8 , 5 da r9c9 , ",
    "in the block 9 the yellow cells r7c8 and r9c7\r\n"
    "contain only 15\r\n"
    "therefore in the block 9 the numbers 1 and 5 are forced in one of the two yellow cells\r\n"
    "we can delete the two candidates from any other cell of the block 9\r\n"
    "in our case we can delete them from red cells: "
    "1 from r7c7 , 1 from r8c8 , 5 from r8c8 , 5 from r9c9 , ",
};
const Example nakedblock = {
    .name = "NakedInBlock",
    .tag = "nakedpair",
    .level = 4,
    .step = frmmain::nakedpair,
    .twin = frmgenerazione::nakedpair,
    .held = {{at(7, 8), "15"},
             {at(9, 7), "15"},
             {at(7, 7), "12346789"},
             {at(7, 9), "2346789"},
             {at(8, 7), "2346789"},
             {at(8, 9), "2346789"},
             {at(9, 8), "2346789"},
             {at(9, 9), "23456789"}},
    .taken = {{at(7, 7), "1"}, {at(8, 8), "15"}, {at(9, 9), "5"}},
    .hint = {"COPPIA NUDA 15 nelle celle r7c8 , r9c7", "NAKED PAIR 15, cells r7c8 , r9c7"},
    .Text2 = {{at(7, 8), "yellow"}, {at(9, 7), "yellow"}},
    .done = {"eliminato 1 from r7c7 , 1 from r8c8 , 5 from r8c8 , 5 from r9c9 , ",
             "deleted 1 from r7c7 , 1 from r8c8 , 5 from r8c8 , 5 from r9c9 , "},
    .foundbystop = false,
    .log = {{"COPPIA NUDA 15 , celle r7c8 , r9c7", "NAKED PAIR 15 ,  cells r7c8 , r9c7"},
            {" * eliminato 1 from r7c7 , 1 from r8c8 , 5 from r8c8 , 5 from r9c9 , ",
             " * deleted 1 from r7c7 , 1 from r8c8 , 5 from r8c8 , 5 from r9c9 , "}},
    .lesson = {{.adds = nakedpairrule + nakedblocklesson,
                .Text2 = {{at(7, 8), "yellow"}, {at(9, 7), "yellow"}},
                .candidate = painted({{at(7, 7), "1"}, {at(8, 8), "15"}, {at(9, 9), "5"}}, "red"),
                .left = painted({{at(7, 7), "1"}, {at(8, 8), "15"}, {at(9, 9), "5"}}, "red")}},
    .closing = {"eliminato i numeri 1 e 5 da  r7c7 ,  r8c8 ,  r9c9 , ",
                "deleted  numbers 1 and 5 from  r7c7 ,  r8c8 ,  r9c9 , "},
};

const Said hiddenpairrule = {
    "DOPPIA NASCOSTA - LIVELLO 5\r\n"
    "Se in due celle di un gruppo (settore riga o colonna) è contenuta una coppia identica di candidati e nessuna "
    "altra cella del gruppo contiene i due candidati, allora possiamo escludere tutti gli altri candidati da "
    "queste due celle.\r\n"
    "==============================================\r\n",
    "HIDDEN PAIR - LEVEL 5\r\n"
    "If in 2 cells of a house (block, row, column) is contained an identical pair of candidates and no other cell "
    "of the house contain the 2 candidates, then we can delete all the other candidates from these 2 cells.\r\n"
    "==============================================\r\n",
};

const Said hiddenrowlesson = {
    "nella riga 5 le celle r5c1 e r5c9 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 3 e 8\r\n"
    "Ne consegue che una cella dovrà contenere il 3\r\n"
    "e l'altra  dovrà contenere il 8 o viceversa\r\n"
    "possiamo quindi eliminare dalle due celle  \r\n"
    "ogni altro candidato diverso da  3 e 8",
    "in the row 5 the green cells r5c1 and r5c9\r\n"
    "are the only ones to contain the candidates 3 and 8\r\n"
    "Therefore one cell must contain 3\r\n"
    "and the other must contain 8 or vice versa\r\n"
    "we can delete from the 2 cells  \r\n"
    "any other candidate different from  3 and 8",
};
const Example hiddenrow = {
    .name = "HiddenInRow",
    .tag = "hiddenpair",
    .level = 5,
    .step = frmmain::hiddenpair,
    .twin = frmgenerazione::hiddenpair,
    .held = {{at(5, 2), "1245679"},
             {at(5, 3), "1245679"},
             {at(5, 4), "1245679"},
             {at(5, 5), "1245679"},
             {at(5, 6), "1245679"},
             {at(5, 7), "1245679"},
             {at(5, 8), "1245679"}},
    .taken = {{at(5, 1), "1245679"}, {at(5, 9), "1245679"}},
    .number = "38",
    .hint = {"COPPIA NASCOSTA 38 nelle celle r5c1 , r5c9", "HIDDEN PAIR 38, cells r5c1 , r5c9"},
    .candidate = painted({{at(5, 1), "38"}, {at(5, 9), "38"}}, "green"),
    .narrowed = true,
    .done = {"inserito 38 in r5c1 , r5c9", "entered 38 in r5c1 , r5c9"},
    .foundbystop = false,
    .log = {{"COPPIA NASCOSTA 38 nelle celle r5c1 , r5c9", "HIDDEN PAIR 38, cells r5c1 , r5c9"},
            {" * inserito 38 in r5c1 , r5c9", " * entered 38 in r5c1 , r5c9"}},
    .lesson = {{.adds = hiddenpairrule + hiddenrowlesson,
                .candidate = painted({{at(5, 1), "38"}, {at(5, 9), "38"}}, "green")}},
    .closing = {"rimossi extra numeri da  r5c1 r5c9", "deleted extra cendidates from  r5c1 r5c9"},
};

const Said hiddencolumnlesson = {
    "nella colonna 4 le celle r2c4 e r5c4 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 1 e 6\r\n"
    "Ne consegue che una cella dovrà contenere 1\r\n"
    "e l'altra  dovrà contenere 6 o viceversa\r\n"
    "possiamo quindi eliminare dalle due celle  \r\n"
    "ogni altro candidato diverso da  1 e 6",
    "in the column 4 the green cells r2c4 and r5c4\r\n"
    "are the only ones to contain the candidates 1 and 6\r\n"
    "Therefore one cell must contain 1\r\n"
    "and the other must contain 6 or vice versa\r\n"
    "we can delete from the 2 cells  \r\n"
    "any other candidate different from  1 and 6",
};
const Example hiddencolumn = {
    .name = "HiddenInColumn",
    .tag = "hiddenpair",
    .level = 5,
    .step = frmmain::hiddenpair,
    .twin = frmgenerazione::hiddenpair,
    .held = {{at(1, 4), "2345789"},
             {at(3, 4), "2345789"},
             {at(4, 4), "2345789"},
             {at(6, 4), "2345789"},
             {at(7, 4), "2345789"},
             {at(8, 4), "2345789"},
             {at(9, 4), "2345789"},
             {at(2, 4), "16"}},
    .taken =  // one of the two cells is bare already
    {{at(5, 4), "2345789"}},
    .number = "16",
    .hint = {"COPPIA NASCOSTA 16 nelle celle r2c4 , r5c4", "HIDDEN PAIR 16, cells r2c4 , r5c4"},
    .candidate = painted({{at(2, 4), "16"}, {at(5, 4), "16"}}, "green"),
    .narrowed = true,
    .done = {"inserito 16 in r2c4 , r5c4", "entered 16 in r2c4 , r5c4"},
    .foundbystop = false,
    .log = {{"COPPIA NASCOSTA 16 nelle celle r2c4 , r5c4", "HIDDEN PAIR 16, cells r2c4 , r5c4"},
            {" * inserito 16 in r2c4 , r5c4", " * entered 16 in r2c4 , r5c4"}},
    .lesson = {{.adds = hiddenpairrule + hiddencolumnlesson,
                .candidate = painted({{at(2, 4), "16"}, {at(5, 4), "16"}}, "green")}},
    .closing = {"rimossi extra numeri da  r2c4 r5c4", "deleted extra cendidates from  r2c4 r5c4"},
};

const Said hiddenblocklesson = {
    "nel settore 7 le celle r7c1 e r9c3 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 5 e 9\r\n"
    "Ne consegue che una cella dovrà contenere 5\r\n"
    "e l'altra  dovrà contenere 9 o viceversa\r\n"
    "possiamo quindi eliminare dalle due celle  \r\n"
    "ogni altro candidato diverso da  5 e 9",
    "in the block 7 the green cells r7c1 and r9c3\r\n"
    "are the only ones to contain the candidates 5 and 9\r\n"
    "Therefore one cell must contain 5\r\n"
    "and the other must contain 9 or vice versa\r\n"
    "we can delete from the 2 cells  \r\n"
    "any other candidate different from  5 and 9",
};
const Example hiddenblock = {
    .name = "HiddenInBlock",
    .tag = "hiddenpair",
    .level = 5,
    .step = frmmain::hiddenpair,
    .twin = frmgenerazione::hiddenpair,
    .held = {{at(7, 2), "1234678"},
             {at(7, 3), "1234678"},
             {at(8, 1), "1234678"},
             {at(8, 2), "1234678"},
             {at(8, 3), "1234678"},
             {at(9, 1), "1234678"},
             {at(9, 2), "1234678"},
             {at(9, 3), "59"}},
    .taken =  // the other of the two
    {{at(7, 1), "1234678"}},
    .number = "59",
    .hint = {"COPPIA NASCOSTA 59 nelle celle r7c1 , r9c3", "HIDDEN PAIR 59, cells r7c1 , r9c3"},
    .candidate = painted({{at(7, 1), "59"}, {at(9, 3), "59"}}, "green"),
    .narrowed = true,
    .done = {"inserito 59 in r7c1 , r9c3", "entered 59 in r7c1 , r9c3"},
    .foundbystop = false,
    .log = {{"COPPIA NASCOSTA 59 nelle celle r7c1 , r9c3", "HIDDEN PAIR 59, cells r7c1 , r9c3"},
            {" * inserito 59 in r7c1 , r9c3", " * entered 59 in r7c1 , r9c3"}},
    .lesson = {{.adds = hiddenpairrule + hiddenblocklesson,
                .candidate = painted({{at(7, 1), "59"}, {at(9, 3), "59"}}, "green")}},
    .closing = {"rimossi extra numeri da  r7c1 r9c3", "deleted extra cendidates from  r7c1 r9c3"},
};

EXAMPLES(Pairs, &nakedrow, &nakedcolumn, &nakedblock, &hiddenrow, &hiddencolumn, &hiddenblock);

// ---- what is found, and in which order --------------------------------------------------------------------

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

TEST_F(Pairs, AStepKeepsItsCellItsHouseAndAHiddenPairItsDigit) {
  curdigit = 9;
  leave(at(5, 2), "36");
  leave(at(5, 8), "36");
  step(frmmain::nakedpair);
  EXPECT_EQ(curcell, at(5, 2));
  EXPECT_EQ(currow, 4);
  EXPECT_EQ(curdigit, 9);
  leave(at(2, 4), "36");
  leave(at(7, 4), "36");
  step(frmmain::nakedpair);
  EXPECT_EQ(curcell, at(2, 4));
  EXPECT_EQ(curcol, 3);
  take("47", block(9, {at(7, 8), at(9, 9)}));
  step(frmmain::hiddenpair);
  EXPECT_EQ(curcell, at(7, 8));
  EXPECT_EQ(curblock, 8);
  EXPECT_EQ(curdigit, 4);
}

TEST_F(Pairs, GradingInAnOpenWaitDoesNotChangeWhatIsExplained) {
  leave(at(5, 2), "36");
  leave(at(5, 8), "36");
  leave(at(8, 2), "19");
  leave(at(8, 8), "19");
  take("47", row(9, {at(9, 2), at(9, 8)}));
  const std::vector<int> open = masks();
  const auto grade = [&] {
    frmgenerazione::nakedpair();
    frmgenerazione::nakedpair();
    frmgenerazione::hiddenpair();
    putmasks(open);
  };
  player.script = {grade, help, stop};
  player.event(frmmain::nakedpair);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_NE(player.frames[2].activity.value_or("").find("in the row 5 the yellow cells r5c2 and r5c8"),
            std::string::npos);
}

}  // namespace
}  // namespace gradino::tests
