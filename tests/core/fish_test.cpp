// Fish: what step, twin and explanation of each say, paint and delete, which one is found, and in which
// order.
#include "fish.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "explain.h"
#include "gradestate.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "tables.h"
#include "technique.h"

namespace gradino::tests {
namespace {

/// The digit is no candidate of these cells; they and all others keep the other digits.
Marks ruledout(char digit, const std::vector<std::vector<int>>& from) {
  std::string others = "123456789";
  others.erase(others.find(digit), 1);
  Marks marks;
  for (const std::vector<int>& cells : from)
    for (int cell : cells) marks.emplace_back(cell, others);
  return marks;
}

// ---- X-Wing -----------------------------------------------------------------------------------------------

const Said xwingrule = {
    "TECNICA X-WING  LIVELLO 10\r\n"
    "si devono trovare due righe (colonne) che contengono un candidato\r\n"
    "solo su due celle, se le celle sono su due colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle due colonne (righe)\r\n"
    "===================================================\r\n",
    "TECHNIQUE X-WING  LEVEL 10\r\n"
    "if we find two rows (columns) containing one candidate\r\n"
    "only in two cells and if these two cells are on two same columns (rows) \r\n"
    "then we can delete the candidate from the other cells of the 2 columns (rows)\r\n"
    "===================================================\r\n",
};

// Corners 1 and 4 stay green, 2 and 3 turn blue.
const Said xwingrowslesson = {
    "nel nostro caso\r\n"
    "nella riga 1 il numero 5 è contenuto solo in r1c3 e r1c6\r\n"
    "quindi il numero 5 o nella cella azzurra o nella cella verde della riga 1\r\n"
    "nella riga 4 il numero 5 è contenuto solo in r4c3 e r4c6\r\n"
    "quindi il numero 5 o nella cella azzurra o nella cella verde della riga 4\r\n"
    "non sappiamo in quale cella delle due righe si trovi il numero 5\r\n"
    "ma sicuramente il 5 sta o nelle celle azzurre o nelle verdi",
    "in our case:\r\n"
    "in row 1 the number 5 is present only in r1c3 and r1c6\r\n"
    "therefore 5 or in blue cell or in green cell of row 1\r\n"
    "in row 4 the number 5 is present only in r4c3 and r4c6\r\n"
    "therefore 5 or in blue cell or in green cell of row 4\r\n"
    "we don't know which cell of the two rows contain the number 5\r\n"
    "but surely the number 5 is or in blue cells or in the green ones",
};
const Paint xwingrowscorners = {{at(1, 3) * 10 + 5, "green"},
                                {at(1, 6) * 10 + 5, "cyan"},
                                {at(4, 3) * 10 + 5, "cyan"},
                                {at(4, 6) * 10 + 5, "green"}};
const Example xwingrows = {
    .name = "XWingInRows",
    .tag = "findxwing",
    .level = 10,
    .step = frmmain::findxwing,
    .twin = frmgenerazione::findxwing,
    .held =
        ruledout('5', {row(1, {at(1, 3), at(1, 6)}), row(4, {at(4, 3), at(4, 6)}),
                       column(3, {at(1, 3), at(4, 3), at(7, 3)}), column(6, {at(1, 6), at(4, 6), at(9, 6)})}),
    .taken = {{at(7, 3), "5"}, {at(9, 6), "5"}},
    .number = "5",
    .hint = {"X-WING, numero 5 nelle righe 14 colonne 36", "X-WING, number 5 in rows 14 columns 36"},
    .candidate = painted(each({at(1, 3), at(1, 6), at(4, 3), at(4, 6)}, "5"), "green"),
    .done = {"eliminato 5 from   r7c3 ,   r9c6 , ", "deleted 5 from   r7c3 ,   r9c6 , "},
    .log = {{"X-WING, numero 5 nelle righe 14 colonne 36", "X-WING, number 5 in rows 14 columns 36"},
            {" *`eliminato 5 from   r7c3 ,   r9c6 , ", " * deleted 5 from   r7c3 ,   r9c6 , "}},
    .lesson = {{.adds = xwingrule + xwingrowslesson, .candidate = xwingrowscorners},
               {.adds = {"\r\npossiamo quindi eliminare il 5 dalle altre celle delle colonne 3 e 6\r\n"
                         "colorate in rosso \r\n"
                         "nel nostro caso da r7c3, r9c6, ",
                         "\r\nThen we can delete 5 from the red cells of columns 3 and 6\r\n"
                         "in our case from r7c3, r9c6, "},
                .candidate = painted(each({at(7, 3), at(9, 6)}, "5"), "red", xwingrowscorners),
                .left = painted(each({at(7, 3), at(9, 6)}, "5"), "red")}},
};

const Said xwingcolumnslesson = {
    "nel nostro caso\r\n"
    "nella colonna 2 il numero 8 è contenuto solo in r4c2 e r9c2\r\n"
    "quindi il numero 8 o nella cella azzurra o nella cella verde della colonna 2\r\n"
    "nella colonna 7 il numero 8 è contenuto solo in r4c7 e r9c7\r\n"
    "quindi il numero 8 o nella cella azzurra o nella cella verde della colonna 7\r\n"
    "non sappiamo in quale cella delle due righe si trovi il numero 8\r\n"
    "ma sicuramente il 8 sta o nelle celle azzurre o nelle verdi",
    "in our case:\r\n"
    "in column 2 the number 8 is present only in r4c2 and r9c2\r\n"
    "therefore 8 or in blue cell or in green cell of column 2\r\n"
    "in column 7 the number 8 is present only in r4c7 and r9c7\r\n"
    "therefore 8 or in blue cell or in green cell of column 7\r\n"
    "we don't know which cell of the two columns contain the number 8\r\n"
    "but surely the number 8 is or in blue cells or in the green ones",
};
const Paint xwingcolumnscorners = {{at(4, 2) * 10 + 8, "green"},
                                   {at(9, 2) * 10 + 8, "cyan"},
                                   {at(4, 7) * 10 + 8, "cyan"},
                                   {at(9, 7) * 10 + 8, "green"}};
const Example xwingcolumns = {
    .name = "XWingInColumns",
    .tag = "findxwing",
    .level = 10,
    .step = frmmain::findxwing,
    .twin = frmgenerazione::findxwing,
    .held = ruledout(
        '8', {column(2, {at(4, 2), at(9, 2)}), column(7, {at(4, 7), at(9, 7)}),
              row(4, {at(4, 2), at(4, 7), at(4, 5)}), row(9, {at(9, 2), at(9, 7), at(9, 1), at(9, 9)})}),
    .taken = {{at(4, 5), "8"}, {at(9, 1), "8"}, {at(9, 9), "8"}},
    .number = "8",
    .hint = {"X-WING, numero 8 nelle colonne 27 righe 49", "X-WING, number 8 in columns 27 rows 49"},
    .candidate = painted(each({at(4, 2), at(9, 2), at(4, 7), at(9, 7)}, "8"), "green"),
    .done = {"eliminato 8 from   r4c5 ,   r9c1 ,   r9c9 , ", "deleted 8 from   r4c5 ,   r9c1 ,   r9c9 , "},
    .log = {{"X-WING, numero 8 nelle colonne 27 righe 49", "X-WING, number 8 in columns 27 rows 49"},
            {" *`eliminato 8 from   r4c5 ,   r9c1 ,   r9c9 , ",
             " * deleted 8 from   r4c5 ,   r9c1 ,   r9c9 , "}},
    .lesson = {{.adds = xwingrule + xwingcolumnslesson, .candidate = xwingcolumnscorners},
               {.adds = {"\r\npossiamo quindi eliminare il 8 dalle altre celle delle righe 4 e 9\r\n"
                         "colorate in rosso \r\n"
                         "nel nostro caso da r4c5, r9c1, r9c9, ",
                         "\r\nThen we can delete 8 from the red cells of rows 4 and 9\r\n"
                         "in our case from r4c5, r9c1, r9c9, "},
                .candidate = painted(each({at(4, 5), at(9, 1), at(9, 9)}, "8"), "red", xwingcolumnscorners),
                .left = painted(each({at(4, 5), at(9, 1), at(9, 9)}, "8"), "red")}},
};

// ---- Swordfish --------------------------------------------------------------------------------------------

const Said swordfishrule = {
    "TECNICA SWORDFISH  LIVELLO 11\r\n"
    "Si devono trovare 3 righe(colonne) con lo stesso candidato unico\r\n"
    "solo su 3 celle, se le celle cadono su 3 colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle 3 colonne(righe)\r\n"
    "==============================================\r\n",
    "TECHNIQUE SWORDFISH  LEVEL 11\r\n"
    "When ALL candidates for number X in 3 rows (columns)\r\n"
    "are located in only 3 columns (rows), \r\n"
    "we can eliminate all candidates for number X \r\n"
    "from those 3 columns (rows)\r\n"
    "except those located on the defining 3 rows (columns)\r\n"
    "==============================================\r\n",
};

// From here on the step shows both green and red, and the explanation paints nothing that is not there.
const Paint swordfishrowsmarks =
    painted(each({at(1, 2), at(1, 8), at(4, 2), at(4, 5), at(7, 5), at(7, 8)}, "4"), "green",
            painted(each({at(3, 2), at(9, 8)}, "4"), "red"));
const Said swordfishrowslesson = {
    "nella righe 1 e 4 e 7 il numero 4 è contenuto solo nelle celle verdi\r\n"
    "questo comporta che anche nelle colonne 2 e 8 e 5 il numero 4\r\n"
    "deve obbligatoriamente cadere in una delle celle verdi ",
    "in rows 1 , 4 , 7 the number 4 is located only on green cells\r\n"
    "in consequence, also in the columns 2 , 8 , 5 the number 4\r\n"
    "is forced on green cells ",
};
const Example swordfishrows = {
    .name = "SwordfishInRows",
    .tag = "findswordfish",
    .level = 11,
    .step = frmmain::findswordfish,
    .twin = frmgenerazione::findswordfish,
    .held = ruledout('4', {row(1, {at(1, 2), at(1, 8)}), row(4, {at(4, 2), at(4, 5)}),
                           row(7, {at(7, 5), at(7, 8)}), column(2, {at(1, 2), at(3, 2), at(4, 2)}),
                           column(5, {at(4, 5), at(7, 5)}), column(8, {at(1, 8), at(7, 8), at(9, 8)})}),
    .taken = {{at(3, 2), "4"}, {at(9, 8), "4"}},
    .number = "4",
    .hint = {"SWORDFISH, numero 4 nelle righe 147 colonne 285",
             "SWORDFISH, number 4 in rows 147 columns 285"},
    .candidate = swordfishrowsmarks,
    .done = {"eliminato 4 from   r3c2 ,   r9c8 , ", "deleted 4 from   r3c2 ,   r9c8 , "},
    .log = {{"SWORDFISH, numero 4 nelle righe 147 colonne 285",
             "SWORDFISH, number 4 in rows 147 columns 285"},
            {" * eliminato 4 from   r3c2 ,   r9c8 , ", " * deleted 4 from   r3c2 ,   r9c8 , "}},
    .lesson = {{.adds = swordfishrule + swordfishrowslesson, .candidate = swordfishrowsmarks},
               {.adds = {"\r\npossiamo quindi eliminare il 4 dalle altre celle delle colonne 2 e 8 e 5\r\n"
                         "colorate in rosso \r\n"
                         "nel nostro caso da r3c2, r9c8, ",
                         "\r\nThen we can delete 4 from the other cells of columns 2 and 8 and 5\r\n"
                         "red colored, in our case from r3c2, r9c8, "},
                .candidate = swordfishrowsmarks}},
};

const Paint swordfishcolumnsmarks =
    painted(each({at(3, 1), at(8, 1), at(3, 5), at(6, 5), at(6, 9), at(8, 9)}, "3"), "green",
            painted(each({at(3, 7), at(8, 3), at(8, 6)}, "3"), "red"));
const Said swordfishcolumnslesson = {
    "nella colonne 1 e 5 e 9 il numero 3 è contenuto solo nelle celle verdi\r\n"
    "questo comporta che anche nelle righe 3 e 8 e 6 il numero 3\r\n"
    "deve obbligatoriamente cadere in una delle celle verdi ",
    "in columns 1 , 5 , 9 the number 3 is located only on green cells\r\n"
    "in consequence, also in the rows 3 , 8 , 6 the number 3\r\n"
    "is forced on green cells ",
};
const Example swordfishcolumns = {
    .name = "SwordfishInColumns",
    .tag = "findswordfish",
    .level = 11,
    .step = frmmain::findswordfish,
    .twin = frmgenerazione::findswordfish,
    .held = ruledout('3', {column(1, {at(3, 1), at(8, 1)}), column(5, {at(3, 5), at(6, 5)}),
                           column(9, {at(6, 9), at(8, 9)}), row(3, {at(3, 1), at(3, 5), at(3, 7)}),
                           row(6, {at(6, 5), at(6, 9)}), row(8, {at(8, 1), at(8, 3), at(8, 6), at(8, 9)})}),
    .taken = {{at(3, 7), "3"}, {at(8, 3), "3"}, {at(8, 6), "3"}},
    .number = "3",
    .hint = {"SWORDFISH, numero 3 nelle colonne 159 righe 386",
             "SWORDFISH, number 3 in columns 159 rows 386"},
    .candidate = swordfishcolumnsmarks,
    .done = {"eliminato 3 from   r3c7 ,   r8c3 ,   r8c6 , ", "deleted 3 from   r3c7 ,   r8c3 ,   r8c6 , "},
    .log = {{"SWORDFISH, numero 3 nelle colonne 159 righe 386",
             "SWORDFISH, number 3 in columns 159 rows 386"},
            {" * eliminato 3 from   r3c7 ,   r8c3 ,   r8c6 , ",
             " * deleted 3 from   r3c7 ,   r8c3 ,   r8c6 , "}},
    .lesson = {{.adds = swordfishrule + swordfishcolumnslesson, .candidate = swordfishcolumnsmarks},
               {.adds = {"\r\npossiamo quindi eliminare il 3 dalle altre celle delle righe 3 e 8 e 6\r\n"
                         "colorate in rosso \r\n"
                         "nel nostro caso da r3c7, r8c3, r8c6, ",
                         "\r\nThen we can delete 3 from the other cells of rows 3 and 8 and 6\r\n"
                         "red colored, in our case from r3c7, r8c3, r8c6, "},
                .candidate = swordfishcolumnsmarks}},
};

// ---- Jellyfish --------------------------------------------------------------------------------------------

const Said jellyfishrule = {
    "TECNICA JELLYFISH  LIVELLO 12\r\n"
    "Si devono trovare 4 righe(colonne) con lo stesso candidato unico\r\n"
    "solo su 4 celle, se le celle cadono su 4 colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle 4 colonne(righe)\r\n"
    "==============================================\r\n",
    "TECHNIQUE JELLYFISH  LEVEL 12\r\n"
    "When ALL candidates for number X in 4 rows (columns)\r\n"
    "are located in only 4 columns (rows), \r\n"
    "we can eliminate all candidates for number X \r\n"
    "from those 4 columns (rows)\r\n"
    "except those located on the defining 4 rows (columns)\r\n"
    "==============================================\r\n",
};

const std::vector<int> jellyfishrowsplaces = {at(1, 2), at(1, 5), at(1, 9), at(4, 2), at(4, 5), at(4, 9),
                                              at(6, 5), at(6, 7), at(6, 9), at(8, 2), at(8, 5), at(8, 7)};
const std::vector<int> jellyfishrowsvictims = {at(3, 2), at(9, 5), at(9, 9), at(2, 7), at(5, 7)};
const Paint jellyfishrowsmarks =
    painted(each(jellyfishrowsplaces, "6"), "green", painted(each(jellyfishrowsvictims, "6"), "red"));
const Said jellyfishrowslesson = {
    "nella righe 1 e 4 e 6 e 8 il numero 6 è contenuto solo nelle celle verdi\r\n"
    "questo comporta che anche nelle colonne 2 e 5 e 9 e 7 il numero 6\r\n"
    "deve obbligatoriamente cadere in una delle celle verdi ",
    "in rows 1 , 4 , 6 , 8 the number 6 is located only on green cells\r\n"
    "in consequence, also in the columns 2 , 5 , 9 , 7 the number 6\r\n"
    "is forced on green cells ",
};
// The last sentence speaks of the numbers of columns as rows.
const Example jellyfishrows = {
    .name = "JellyfishInRows",
    .tag = "findjellyfish",
    .level = 12,
    .step = frmmain::findjellyfish,
    .twin = frmgenerazione::findjellyfish,
    .held = ruledout('6', {row(1, {at(1, 2), at(1, 5), at(1, 9)}), row(4, {at(4, 2), at(4, 5), at(4, 9)}),
                           row(6, {at(6, 5), at(6, 7), at(6, 9)}), row(8, {at(8, 2), at(8, 5), at(8, 7)}),
                           column(2, {at(1, 2), at(3, 2), at(4, 2), at(8, 2)}),
                           column(5, {at(1, 5), at(4, 5), at(6, 5), at(8, 5), at(9, 5)}),
                           column(7, {at(2, 7), at(5, 7), at(6, 7), at(8, 7)}),
                           column(9, {at(1, 9), at(4, 9), at(6, 9), at(9, 9)})}),
    .taken = each(jellyfishrowsvictims, "6"),
    .number = "6",
    .hint = {"JELLYFISH, numero 6 nelle righe 1468 colonne 2597",
             "JELLYFISH, number 6 in rows 1468 columns 2597"},
    .candidate = jellyfishrowsmarks,
    .done = {"eliminato 6 from   r3c2 ,   r9c5 ,   r9c9 ,   r2c7 ,   r5c7 , ",
             "deleted 6 from   r3c2 ,   r9c5 ,   r9c9 ,   r2c7 ,   r5c7 , "},
    .log = {{"JELLYFISH, numero 6 nelle righe 1468 colonne 2597",
             "JELLYFISH, number 6 in rows 1468 columns 2597"},
            {" * eliminato 6 from   r3c2 ,   r9c5 ,   r9c9 ,   r2c7 ,   r5c7 , ",
             " * deleted 6 from   r3c2 ,   r9c5 ,   r9c9 ,   r2c7 ,   r5c7 , "}},
    .lesson = {{.adds = jellyfishrule + jellyfishrowslesson, .candidate = jellyfishrowsmarks},
               {.adds = {"\r\npossiamo quindi eliminare il 6 dalle altre celle delle righe 2 e 5 e 9 e 7\r\n"
                         "colorate in rosso \r\n"
                         "nel nostro caso da r3c2, r9c5, r9c9, r2c7, r5c7, ",
                         "\r\nThen we can delete 6 from the red cells of rows 2 and 5 and 9 and 7\r\n"
                         " in our case from r3c2, r9c5, r9c9, r2c7, r5c7, "},
                .candidate = jellyfishrowsmarks}},
};

// The same with rows and columns exchanged, and another digit.
const std::vector<int> jellyfishcolumnsplaces = {at(2, 1), at(5, 1), at(9, 1), at(2, 4), at(5, 4), at(9, 4),
                                                 at(5, 6), at(7, 6), at(9, 6), at(2, 8), at(5, 8), at(7, 8)};
const std::vector<int> jellyfishcolumnsvictims = {at(2, 3), at(5, 9), at(9, 9), at(7, 2), at(7, 5)};
const Paint jellyfishcolumnsmarks =
    painted(each(jellyfishcolumnsplaces, "2"), "green", painted(each(jellyfishcolumnsvictims, "2"), "red"));
const Said jellyfishcolumnslesson = {
    "nella colonne 1 e 4 e 6 e 8 il numero 2 è contenuto solo nelle celle verdi\r\n"
    "questo comporta che anche nelle righe 2 e 5 e 9 e 7 il numero 2\r\n"
    "deve obbligatoriamente cadere in una delle celle verdi ",
    "in columns 1 , 4 , 6 , 8 the number 2 is located only on green cells\r\n"
    "in consequence, also in the rows 2 , 5 , 9 , 7 the number 2\r\n"
    "is forced on green cells ",
};
const Example jellyfishcolumns = {
    .name = "JellyfishInColumns",
    .tag = "findjellyfish",
    .level = 12,
    .step = frmmain::findjellyfish,
    .twin = frmgenerazione::findjellyfish,
    .held =
        ruledout('2', {column(1, {at(2, 1), at(5, 1), at(9, 1)}), column(4, {at(2, 4), at(5, 4), at(9, 4)}),
                       column(6, {at(5, 6), at(7, 6), at(9, 6)}), column(8, {at(2, 8), at(5, 8), at(7, 8)}),
                       row(2, {at(2, 1), at(2, 3), at(2, 4), at(2, 8)}),
                       row(5, {at(5, 1), at(5, 4), at(5, 6), at(5, 8), at(5, 9)}),
                       row(7, {at(7, 2), at(7, 5), at(7, 6), at(7, 8)}),
                       row(9, {at(9, 1), at(9, 4), at(9, 6), at(9, 9)})}),
    .taken = each(jellyfishcolumnsvictims, "2"),
    .number = "2",
    .hint = {"JELLYFISH, numero 2 nelle colonne 1468 righe 2597",
             "JELLYFISH, number 2 in columns 1468 rows 2597"},
    .candidate = jellyfishcolumnsmarks,
    .done = {"eliminato 2 from   r2c3 ,   r5c9 ,   r9c9 ,   r7c2 ,   r7c5 , ",
             "deleted 2 from   r2c3 ,   r5c9 ,   r9c9 ,   r7c2 ,   r7c5 , "},
    .log = {{"JELLYFISH, numero 2 nelle colonne 1468 righe 2597",
             "JELLYFISH, number 2 in columns 1468 rows 2597"},
            {" * eliminato 2 from   r2c3 ,   r5c9 ,   r9c9 ,   r7c2 ,   r7c5 , ",
             " * deleted 2 from   r2c3 ,   r5c9 ,   r9c9 ,   r7c2 ,   r7c5 , "}},
    .lesson =
        {{.adds = jellyfishrule + jellyfishcolumnslesson, .candidate = jellyfishcolumnsmarks},
         {.adds = {"\r\npossiamo quindi eliminare il 2 dalle altre celle delle colonne 2 e 5 e 9 e 7\r\n"
                   "colorate in rosso \r\n"
                   "nel nostro caso da r2c3, r5c9, r9c9, r7c2, r7c5, ",
                   "\r\nThen we can delete 2 from the red cells of columns 2 and 5 and 9 and 7\r\n"
                   "in our case from r2c3, r5c9, r9c9, r7c2, r7c5, "},
          .candidate = jellyfishcolumnsmarks}},
};

EXAMPLES(Fish, &xwingrows, &xwingcolumns, &swordfishrows, &swordfishcolumns, &jellyfishrows,
         &jellyfishcolumns);

// ---- what is found, and in which order --------------------------------------------------------------------

// Boards on which some digits have the places told, and the others all: those make no fish.
class Fish : public Program {
 protected:
  Fish() { put(emptyboard); }
  static std::string xwing() { return logged(frmgenerazione::findxwing); }
  static std::string swordfish() { return logged(frmgenerazione::findswordfish); }
  static std::string jellyfish() { return logged(frmgenerazione::findjellyfish); }
};

TEST_F(Fish, NoneOnAnEmptyBoardAndFoundflagIsCleared) {
  for (const auto& step : {frmmain::findxwing, frmmain::findswordfish, frmmain::findjellyfish}) {
    foundflag = true;
    EXPECT_EQ(hintof(player, step), "");
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(steptag, "findjellyfish");
  for (const auto& twin :
       {frmgenerazione::findxwing, frmgenerazione::findswordfish, frmgenerazione::findjellyfish}) {
    foundflag = true;
    EXPECT_EQ(logged(twin), "");
    EXPECT_FALSE(foundflag);
  }
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(runninglevel, 0);
}

TEST_F(Fish, DigitsComeBeforeDirections) {
  places(9, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(7, 3)});
  places(2, {at(3, 1), at(6, 1), at(3, 4), at(6, 4), at(3, 7), at(6, 9)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 2 in columns 14 rows 36\r\n * deleted 2 from   r3c7 ,   r6c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 9 in rows 14 columns 36\r\n * deleted 9 from   r7c3 , ");
}

TEST_F(Fish, OfOneDigitRowsComeBeforeColumnsAndLowLinesFirst) {
  places(5, {at(8, 1), at(8, 9), at(9, 1), at(9, 9), at(2, 9),  // rows 8 and 9
             at(4, 2), at(4, 4), at(6, 2), at(6, 4), at(1, 4),  // rows 4 and 6
             at(3, 5), at(7, 5), at(3, 6), at(7, 6), at(3, 8),  // columns 5 and 6
             at(7, 7)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 46 columns 24\r\n * deleted 5 from   r1c4 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 89 columns 19\r\n * deleted 5 from   r2c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in columns 56 rows 37\r\n * deleted 5 from   r3c8 ,   r7c7 , ");
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, TheFirstAndTheLastLinesAreTriedToo) {
  places(5, {at(1, 1), at(1, 9), at(9, 1), at(9, 9), at(4, 9)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 19 columns 19\r\n * deleted 5 from   r4c9 , ");
  put(emptyboard);
  places(6, {at(7, 7), at(7, 8), at(8, 8), at(8, 9), at(9, 7), at(9, 9),  //
             at(1, 1), at(1, 2), at(1, 3), at(1, 9)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 6 in rows 789 columns 789\r\n * deleted 6 from   r1c9 , ");
  put(emptyboard);
  places(7, {at(6, 6), at(6, 7), at(7, 7), at(7, 8), at(8, 8), at(8, 9), at(9, 6), at(9, 9),  //
             at(2, 1), at(2, 2), at(2, 3), at(2, 4), at(2, 6)});
  EXPECT_EQ(jellyfish(), "\r\nJELLYFISH, number 7 in rows 6789 columns 6789\r\n * deleted 7 from   r2c6 , ");
}

TEST_F(Fish, AnXWingNeedsTwoEqualStringsOfTwo) {
  places(5, {at(1, 3), at(4, 3), at(4, 6), at(7, 3), at(9, 6)});
  EXPECT_EQ(xwing(), "");
  put(emptyboard);
  take("6", row(1, {at(1, 3), at(1, 6), at(1, 8)}));
  take("6", row(4, {at(4, 3), at(4, 6), at(4, 8)}));
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, AnXWingIsUsefulByEitherCrossLine) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(8, 3), at(8, 1), at(8, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 14 columns 36\r\n * deleted 5 from   r8c3 , ");
  places(6, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(8, 6), at(8, 1), at(8, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 6 in rows 14 columns 36\r\n * deleted 6 from   r8c6 , ");
}

TEST_F(Fish, ALineWithASinglePlaceCountsForTheGreaterOnes) {
  places(4, {at(1, 2), at(4, 2), at(4, 5), at(7, 5), at(7, 8), at(9, 8), at(9, 1), at(9, 3), at(9, 7)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 4 in rows 147 columns 258\r\n * deleted 4 from   r9c8 , ");
  put(emptyboard);
  places(6, {at(1, 1), at(3, 3), at(3, 5), at(5, 5), at(5, 7), at(7, 7), at(7, 1),  //
             at(9, 1), at(9, 2), at(9, 4), at(9, 6), at(9, 8)});
  EXPECT_EQ(jellyfish(), "\r\nJELLYFISH, number 6 in rows 1357 columns 1357\r\n * deleted 6 from   r9c1 , ");
}

TEST_F(Fish, ALineWithMorePlacesThanLinesDoesNotQualify) {
  places(4, {at(1, 2), at(1, 5), at(1, 8), at(4, 2), at(4, 5), at(4, 8), at(7, 2), at(7, 5), at(7, 8),  //
             at(9, 1), at(9, 2), at(9, 3), at(9, 4)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 4 in rows 147 columns 258\r\n * deleted 4 from   r9c2 , ");
  put(emptyboard);
  take("4", row(1, {at(1, 2), at(1, 5), at(1, 8)}));
  take("4", row(4, {at(4, 2), at(4, 5), at(4, 8)}));
  take("4", row(7, {at(7, 2), at(7, 5), at(7, 8), at(7, 9)}));
  EXPECT_EQ(swordfish(), "");
}

// Rows 1 and 4 make an X-Wing, and with row 7 they make a Swordfish all the same.
TEST_F(Fish, ASwordfishMayTakeARowThatIsPartOfAnXWing) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6), at(7, 3), at(7, 9), at(9, 9)});
  EXPECT_EQ(swordfish(), "\r\nSWORDFISH, number 5 in rows 147 columns 369\r\n * deleted 5 from   r9c9 , ");
  EXPECT_EQ(xwing(), "\r\nX-WING, number 5 in rows 14 columns 36\r\n * deleted 5 from   r7c3 , ");
}

// Rows 1 and 4 lie on three columns. Row 2, where the digit has no place, does not make them a Swordfish.
TEST_F(Fish, ALineWithoutACandidateNeverQualifies) {
  take("5", row(1, {at(1, 2), at(1, 5)}));
  take("5", row(2));
  take("5", row(4, {at(4, 5), at(4, 8)}));
  EXPECT_EQ(swordfish(), "");
  take("5", row(6, {at(6, 8), at(6, 9)}));
  EXPECT_EQ(jellyfish(), "");
  EXPECT_EQ(swordfish(), "");
  put(emptyboard);
  take("5", row(2));
  take("5", row(3));
  EXPECT_EQ(xwing(), "");
}

TEST_F(Fish, AFishWithNothingToDeleteIsPassedOverAndTheScanGoesOn) {
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6)});
  for (const auto& twin :
       {frmgenerazione::findxwing, frmgenerazione::findswordfish, frmgenerazione::findjellyfish})
    EXPECT_EQ(logged(twin), "");
  places(5, {at(1, 3), at(1, 6), at(4, 3), at(4, 6)});
  places(6, {at(2, 3), at(2, 6), at(3, 3), at(3, 6), at(7, 1), at(7, 8), at(8, 1), at(8, 8), at(9, 8)});
  EXPECT_EQ(xwing(), "\r\nX-WING, number 6 in rows 78 columns 18\r\n * deleted 6 from   r9c8 , ");
}

TEST_F(Fish, WithoutAFindTheExplanationSaysNothing) {
  player.event(frmmain::findxwing);
  EXPECT_TRUE(player.frames.empty());
  player.event(Picthelp_Click);
  EXPECT_FALSE(frmactivity::visible);
}

}  // namespace
}  // namespace gradino::tests
