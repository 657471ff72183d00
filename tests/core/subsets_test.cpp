// Triples and quads: which one is found, what step, twin and explanation say, paint and do, and what a stop
// leaves behind.
#include "subsets.h"

#include <gtest/gtest.h>

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

const Said nakedtriplerule = {
    "TRIPLA NUDA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi tre candidati, allora "
    "possiamo eliminare i tre candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n",
    "NAKED TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates, then we can delete the 3 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n",
};

const Said nakedtriplerowlesson = {
    "nella riga 1 le celle r1c1 e r1c5 e r1c9 (colorate in verde)\r\n"
    "contengono solamente 3 e 4 e 9\r\n"
    "Ne consegue che nella riga 1 i numeri 3 e 4 e 9 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella della riga 1\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "4 da r1c2 , 3 da r1c6 , 9 da r1c6 , ",
    "in the row 1 the green cells r1c1 e r1c5 e r1c9\r\n"
    "contain only 349\r\n"
    "Therefore in the row 1 i numeri 349 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the row 1\r\n"
    "in our case we can delete them from: \r\n"
    "4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
};
const Example nakedtriplerow = {
    .name = "NakedTripleInRow",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(1, 1), "349"},
             {at(1, 2), "1245678"},
             {at(1, 3), "125678"},
             {at(1, 4), "125678"},
             {at(1, 5), "34"},
             {at(1, 6), "12356789"},
             {at(1, 7), "125678"},
             {at(1, 8), "125678"},
             {at(1, 9), "49"}},
    .taken = {{at(1, 2), "4"}, {at(1, 6), "39"}},
    .number = "349",
    .hint = {"TRIPLA NUDA  349 nelle celle r1c1 , r1c5 , r1c9", "NAKED TRIPLE 349, cells r1c1 , r1c5 , r1c9"},
    .candidate = painted({{at(1, 1), "349"}, {at(1, 5), "349"}, {at(1, 9), "349"}}, "green"),
    .done = {"eliminato 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
             "deleted 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , "},
    .log = {{"TRIPLA NUDA  349 nelle celle r1c1 , r1c5 , r1c9", "NAKED TRIPLE 349, cells r1c1 , r1c5 , r1c9"},
            {" * eliminato 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
             " * deleted 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , "}},
    .lesson = {{.adds = nakedtriplerule + nakedtriplerowlesson,
                .candidate =
                    painted({{at(1, 2), "4"}, {at(1, 6), "39"}}, "red",
                            painted({{at(1, 1), "349"}, {at(1, 5), "349"}, {at(1, 9), "349"}}, "green")),
                .left = painted({{at(1, 2), "4"}, {at(1, 6), "39"}}, "red")}},
    .closing =
        {"eliminato i numeri 349 da r1c1 ,  r1c5 ,  r1c6 ,  r1c1 ,  r1c2 ,  r1c5 ,  r1c9 ,  r1c1 ,  r1c6 ,  r1c9 , ",
         "deleted number 349 from r1c1 ,  r1c5 ,  r1c6 ,  r1c1 ,  r1c2 ,  r1c5 ,  r1c9 ,  r1c1 ,  r1c6 ,  r1c9 , "},
};

// Three cells of two candidates each. In a column the English words are shorter.
const Said nakedtriplecolumnlesson = {
    "nella colonna 6 le celle r2c6 e r5c6 e r9c6 (colorate in verde)\r\n"
    "contengono solamente 1 e 5 e 8\r\n"
    "Ne consegue che nella colonna 6 i numeri 1 e 5 e 8 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella della colonna 6\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "5 da r1c6 , 8 da r1c6 , 1 da r7c6 , ",
    "in the column 6 the green cells r2c6 e r5c6 e r9c6\r\n"
    "contain only 158\r\n"
    "Therefore in the column 6 i numeri 158 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the column 6\r\n"
    "in our case we can delete: \r\n"
    "5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
};
const Example nakedtriplecolumn = {
    .name = "NakedTripleInColumn",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(1, 6), "23456789"},
             {at(2, 6), "15"},
             {at(3, 6), "234679"},
             {at(4, 6), "234679"},
             {at(5, 6), "18"},
             {at(6, 6), "234679"},
             {at(7, 6), "1234679"},
             {at(8, 6), "234679"},
             {at(9, 6), "58"}},
    .taken = {{at(1, 6), "58"}, {at(7, 6), "1"}},
    .number = "158",
    .hint = {"TRIPLA NUDA  158 nelle celle r2c6 , r5c6 , r9c6", "NAKED TRIPLE 158, cells r2c6 , r5c6 , r9c6"},
    .candidate = painted({{at(2, 6), "158"}, {at(5, 6), "158"}, {at(9, 6), "158"}}, "green"),
    .done = {"eliminato 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
             "deleted 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , "},
    .log = {{"TRIPLA NUDA  158 nelle celle r2c6 , r5c6 , r9c6", "NAKED TRIPLE 158, cells r2c6 , r5c6 , r9c6"},
            {" * eliminato 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
             " * deleted 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , "}},
    .lesson = {{.adds = nakedtriplerule + nakedtriplecolumnlesson,
                .candidate =
                    painted({{at(1, 6), "58"}, {at(7, 6), "1"}}, "red",
                            painted({{at(2, 6), "158"}, {at(5, 6), "158"}, {at(9, 6), "158"}}, "green")),
                .left = painted({{at(1, 6), "58"}, {at(7, 6), "1"}}, "red")}},
    .closing =
        {"eliminato i numeri 158 da r2c6 ,  r5c6 ,  r7c6 ,  r1c6 ,  r2c6 ,  r9c6 ,  r1c6 ,  r5c6 ,  r9c6 , ",
         "deleted number 158 from r2c6 ,  r5c6 ,  r7c6 ,  r1c6 ,  r2c6 ,  r9c6 ,  r1c6 ,  r5c6 ,  r9c6 , "},
};

const Said nakedtripleblocklesson = {
    "nel settore 5 le celle r4c4 e r5c6 e r6c5 (colorate in verde)\r\n"
    "contengono solamente 2 e 6 e 7\r\n"
    "Ne consegue che nel settore 5 i numeri 2 e 6 e 7 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella del settore 5\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "2 da r4c6 , 6 da r6c4 , 7 da r6c4 , ",
    "in the block 5 the green cells r4c4 e r5c6 e r6c5\r\n"
    "contain only 267\r\n"
    "Therefore in the block 5 i numeri 267 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the block 5\r\n"
    "in our case we can delete them from: \r\n"
    "2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
};
const Example nakedtripleblock = {
    .name = "NakedTripleInBlock",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(4, 4), "267"},
             {at(4, 5), "134589"},
             {at(4, 6), "1234589"},
             {at(5, 4), "134589"},
             {at(5, 5), "134589"},
             {at(5, 6), "26"},
             {at(6, 4), "13456789"},
             {at(6, 5), "67"},
             {at(6, 6), "134589"}},
    .taken = {{at(4, 6), "2"}, {at(6, 4), "67"}},
    .number = "267",
    .hint = {"TRIPLA NUDA  267 nelle celle r4c4 , r5c6 , r6c5", "NAKED TRIPLE 267, cells r4c4 , r5c6 , r6c5"},
    .candidate = painted({{at(4, 4), "267"}, {at(5, 6), "267"}, {at(6, 5), "267"}}, "green"),
    .done = {"eliminato 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
             "deleted 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , "},
    .log = {{"TRIPLA NUDA  267 nelle celle r4c4 , r5c6 , r6c5", "NAKED TRIPLE 267, cells r4c4 , r5c6 , r6c5"},
            {" * eliminato 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
             " * deleted 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , "}},
    .lesson = {{.adds = nakedtriplerule + nakedtripleblocklesson,
                .candidate =
                    painted({{at(4, 6), "2"}, {at(6, 4), "67"}}, "red",
                            painted({{at(4, 4), "267"}, {at(5, 6), "267"}, {at(6, 5), "267"}}, "green")),
                .left = painted({{at(4, 6), "2"}, {at(6, 4), "67"}}, "red")}},
    .closing =
        {"eliminato i numeri 267 da r4c4 ,  r4c6 ,  r5c6 ,  r4c4 ,  r5c6 ,  r6c4 ,  r6c5 ,  r4c4 ,  r6c4 ,  r6c5 , ",
         "deleted number 267 from r4c4 ,  r4c6 ,  r5c6 ,  r4c4 ,  r5c6 ,  r6c4 ,  r6c5 ,  r4c4 ,  r6c4 ,  r6c5 , "},
};

const Said nakedquadrule = {
    "QUADRUPLA NUDA - LIVELLO 7\r\n"
    "Se 4 celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi 4 candidati, allora "
    "possiamo eliminare i 4 candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n",
    "NAKED QUAD - LEVEL 7\r\n"
    "If 4 cells in a house (block, row, column), contain exactly the same 4 candidates, then we can delete the 4 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n",
};

const Said nakedquadrowlesson = {
    "nella riga 6 le celle r6c2 e r6c5 e r6c6 e r6c9 (colorate in verde)\r\n"
    "contengono solamente 1 e 4 e 6 e 8\r\n"
    "Ne consegue che nella riga 6 i numeri 1 e 4 e 6 e 8 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare i 4 candidati da ogni altra cella della riga 6\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "1 da r6c4 , 8 da r6c4 , 4 da r6c7 , 6 da r6c7 , ",
    "in the row 6 the green cells r6c2 e r6c5 e r6c6 e r6c9\r\n"
    "contain only 1468\r\n"
    "Therefore in the row 6 i numeri 1468 are forced in one of the 4 green cells\r\n"
    "we can delete the 4 candidates from any other cell of the row 6\r\n"
    "in our case we can delete them from: \r\n"
    "1 from r6c4 , 8 from r6c4 , 4 from r6c7 , 6 from r6c7 , ",
};
const Example nakedquadrow = {
    .name = "NakedQuadInRow",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(6, 1), "23579"},
             {at(6, 2), "1468"},
             {at(6, 3), "23579"},
             {at(6, 4), "1235789"},
             {at(6, 5), "148"},
             {at(6, 6), "468"},
             {at(6, 7), "2345679"},
             {at(6, 8), "23579"},
             {at(6, 9), "146"}},
    .taken = {{at(6, 4), "18"}, {at(6, 7), "46"}},
    .number = "1468",
    .hint = {"QUADRUPLA NUDA  1468 nelle celle r6c2 , r6c5 , r6c6 , r6c9",
             "NAKED QUAD 1468, cells r6c2 , r6c5 , r6c6 , r6c9"},
    .candidate =
        painted({{at(6, 2), "1468"}, {at(6, 5), "1468"}, {at(6, 6), "1468"}, {at(6, 9), "1468"}}, "green"),
    .done = {"eliminato 1 from r6c4 , 8 from r6c4 , 4 from r6c7 , 6 from r6c7 , ",
             "deleted 1 from r6c4 , 8 from r6c4 , 4 from r6c7 , 6 from r6c7 , "},
    .log = {{"QUADRUPLA NUDA  1468 nelle celle r6c2 , r6c5 , r6c6 , r6c9",
             "NAKED QUAD 1468, cells r6c2 , r6c5 , r6c6 , r6c9"},
            {" * eliminato 1 from r6c4 , 8 from r6c4 , 4 from r6c7 , 6 from r6c7 , ",
             " * deleted 1 from r6c4 , 8 from r6c4 , 4 from r6c7 , 6 from r6c7 , "}},
    .lesson = {{.adds = nakedquadrule + nakedquadrowlesson,
                .candidate = painted(
                    {{at(6, 4), "18"}, {at(6, 7), "46"}}, "red",
                    painted({{at(6, 2), "1468"}, {at(6, 5), "1468"}, {at(6, 6), "1468"}, {at(6, 9), "1468"}},
                            "green")),
                .left = painted({{at(6, 4), "18"}, {at(6, 7), "46"}}, "red")}},
    .closing =
        {"eliminato i numeri 1468 da r6c2 ,  r6c4 ,  r6c5 ,  r6c9 ,  r6c2 ,  r6c5 ,  r6c6 ,  r6c7 ,  r6c9 ,  r6c2 ,  r6c6 ,  "
         "r6c7 ,  r6c9 ,  r6c2 ,  r6c4 ,  r6c5 ,  r6c6 , ",
         "deleted number 1468 from r6c2 ,  r6c4 ,  r6c5 ,  r6c9 ,  r6c2 ,  r6c5 ,  r6c6 ,  r6c7 ,  r6c9 ,  r6c2 ,  r6c6 ,  "
         "r6c7 ,  r6c9 ,  r6c2 ,  r6c4 ,  r6c5 ,  r6c6 , "},
};

const Said nakedquadcolumnlesson = {
    "nella colonna 3 le celle r1c3 e r4c3 e r7c3 e r8c3 (colorate in verde)\r\n"
    "contengono solamente 2 e 5 e 7 e 9\r\n"
    "Ne consegue che nella colonna 3 i numeri 2 e 5 e 7 e 9 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare i 4 candidati da ogni altra cella della colonna 3\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "2 da r2c3 , 7 da r2c3 , 9 da r9c3 , ",
    "in the column 3 the green cells r1c3 e r4c3 e r7c3 e r8c3\r\n"
    "contain only 2579\r\n"
    "Therefore in the column 3 i numeri 2579 are forced in one of the 4 green cells\r\n"
    "we can delete the 4 candidates from any other cell of the column 3\r\n"
    "in our case we can delete them from: \r\n"
    "2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
};
const Example nakedquadcolumn = {
    .name = "NakedQuadInColumn",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(1, 3), "2579"},
             {at(2, 3), "1234678"},
             {at(3, 3), "13468"},
             {at(4, 3), "257"},
             {at(5, 3), "13468"},
             {at(6, 3), "13468"},
             {at(7, 3), "259"},
             {at(8, 3), "279"},
             {at(9, 3), "134689"}},
    .taken = {{at(2, 3), "27"}, {at(9, 3), "9"}},
    .number = "2579",
    .hint = {"QUADRUPLA NUDA  2579 nelle celle r1c3 , r4c3 , r7c3 , r8c3",
             "NAKED QUAD 2579, cells r1c3 , r4c3 , r7c3 , r8c3"},
    .candidate =
        painted({{at(1, 3), "2579"}, {at(4, 3), "2579"}, {at(7, 3), "2579"}, {at(8, 3), "2579"}}, "green"),
    .done = {"eliminato 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
             "deleted 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , "},
    .log = {{"QUADRUPLA NUDA  2579 nelle celle r1c3 , r4c3 , r7c3 , r8c3",
             "NAKED QUAD 2579, cells r1c3 , r4c3 , r7c3 , r8c3"},
            {" * eliminato 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
             " * deleted 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , "}},
    .lesson = {{.adds = nakedquadrule + nakedquadcolumnlesson,
                .candidate = painted(
                    {{at(2, 3), "27"}, {at(9, 3), "9"}}, "red",
                    painted({{at(1, 3), "2579"}, {at(4, 3), "2579"}, {at(7, 3), "2579"}, {at(8, 3), "2579"}},
                            "green")),
                .left = painted({{at(2, 3), "27"}, {at(9, 3), "9"}}, "red")}},
    .closing =
        {"eliminato i numeri 2579 da r1c3 ,  r2c3 ,  r4c3 ,  r7c3 ,  r8c3 ,  r1c3 ,  r4c3 ,  r7c3 ,  r1c3 ,  r2c3 ,  "
         "r4c3 ,  r8c3 ,  r1c3 ,  r7c3 ,  r8c3 ,  r9c3 , ",
         "deleted number 2579 from r1c3 ,  r2c3 ,  r4c3 ,  r7c3 ,  r8c3 ,  r1c3 ,  r4c3 ,  r7c3 ,  r1c3 ,  r2c3 ,  "
         "r4c3 ,  r8c3 ,  r1c3 ,  r7c3 ,  r8c3 ,  r9c3 , "},
};

const Said nakedquadblocklesson = {
    "nel settore 3 le celle r1c8 e r2c7 e r3c7 e r3c9 (colorate in verde)\r\n"
    "contengono solamente 2 e 3 e 5 e 9\r\n"
    "Ne consegue che nel settore 3 i numeri 2 e 3 e 5 e 9 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare i 4 candidati da ogni altra cella del settore 3\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "2 da r1c7 , 9 da r2c8 , 3 da r3c8 , ",
    "in the block 3 the green cells r1c8 e r2c7 e r3c7 e r3c9\r\n"
    "contain only 2359\r\n"
    "Therefore in the block 3 i numeri 2359 are forced in one of the 4 green cells\r\n"
    "we can delete the 4 candidates from any other cell of the block 3\r\n"
    "in our case we can delete them from: \r\n"
    "2 from r1c7 , 9 from r2c8 , 3 from r3c8 , ",
};
const Example nakedquadblock = {
    .name = "NakedQuadInBlock",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(1, 7), "124678"},
             {at(1, 8), "235"},
             {at(1, 9), "14678"},
             {at(2, 7), "2359"},
             {at(2, 8), "146789"},
             {at(2, 9), "14678"},
             {at(3, 7), "259"},
             {at(3, 8), "134678"},
             {at(3, 9), "359"}},
    .taken = {{at(1, 7), "2"}, {at(2, 8), "9"}, {at(3, 8), "3"}},
    .number = "2359",
    .hint = {"QUADRUPLA NUDA  2359 nelle celle r1c8 , r2c7 , r3c7 , r3c9",
             "NAKED QUAD 2359, cells r1c8 , r2c7 , r3c7 , r3c9"},
    .candidate =
        painted({{at(1, 8), "2359"}, {at(2, 7), "2359"}, {at(3, 7), "2359"}, {at(3, 9), "2359"}}, "green"),
    .done = {"eliminato 2 from r1c7 , 9 from r2c8 , 3 from r3c8 , ",
             "deleted 2 from r1c7 , 9 from r2c8 , 3 from r3c8 , "},
    .log = {{"QUADRUPLA NUDA  2359 nelle celle r1c8 , r2c7 , r3c7 , r3c9",
             "NAKED QUAD 2359, cells r1c8 , r2c7 , r3c7 , r3c9"},
            {" * eliminato 2 from r1c7 , 9 from r2c8 , 3 from r3c8 , ",
             " * deleted 2 from r1c7 , 9 from r2c8 , 3 from r3c8 , "}},
    .lesson = {{.adds = nakedquadrule + nakedquadblocklesson,
                .candidate = painted(
                    {{at(1, 7), "2"}, {at(2, 8), "9"}, {at(3, 8), "3"}}, "red",
                    painted({{at(1, 8), "2359"}, {at(2, 7), "2359"}, {at(3, 7), "2359"}, {at(3, 9), "2359"}},
                            "green")),
                .left = painted({{at(1, 7), "2"}, {at(2, 8), "9"}, {at(3, 8), "3"}}, "red")}},
    .closing =
        {"eliminato i numeri 2359 da r1c7 ,  r1c8 ,  r2c7 ,  r3c7 ,  r1c8 ,  r2c7 ,  r3c8 ,  r3c9 ,  r1c8 ,  r2c7 ,  r3c7 ,  "
         "r3c9 ,  r2c7 ,  r2c8 ,  r3c7 ,  r3c9 , ",
         "deleted number 2359 from r1c7 ,  r1c8 ,  r2c7 ,  r3c7 ,  r1c8 ,  r2c7 ,  r3c8 ,  r3c9 ,  r1c8 ,  r2c7 ,  r3c7 ,  "
         "r3c9 ,  r2c7 ,  r2c8 ,  r3c7 ,  r3c9 , "},
};

const Said hiddentriplerule = {
    "TRIPLA NASCOSTA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono tre candidati identici e nessuna altra cella "
    "del gruppo contiene i tre candidati, allora possiamo escludere tutti gli altri candidati da queste tre "
    "celle\r\n"
    "==============================================\r\n",
    "HIDDEN TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates and no other cell of the "
    "house contains the 3 candidates, then we can delete all the other candidates from this 3 cells\r\n"
    "==============================================\r\n",
};

// The cells stand in the order of the digits' places: 1 has r5c5 and r5c8, 6 has r5c2 and r5c8. Digits that a
// cell doesn't hold are green too, and r5c8 is bare already.
const Said hiddentriplerowlesson = {
    "nella riga 5 le celle r5c5 e r5c8 e r5c2 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 1 e 6 e 9\r\n"
    "Ne consegue che nella riga 5 i numeri 1 e 6 e 9 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 3 celle  1 e 6 e 9\r\n"
    "ogni altro candidato diverso da  ",
    "in the row 5 the green cells r5c5 e r5c8 e r5c2\r\n"
    "are the only ones to contain the candidates 169\r\n"
    "Therefore in the row 5 i numeri 169 are forced in one of the 3 green cells\r\n"
    "we can delete from the 3 cells  1 and 6 and 9\r\n"
    "any other candidate different from  ",
};
const Example hiddentriplerow = {
    .name = "HiddenTripleInRow",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(5, 1), "234578"},
             {at(5, 2), "689"},
             {at(5, 3), "234578"},
             {at(5, 4), "234578"},
             {at(5, 5), "12389"},
             {at(5, 6), "234578"},
             {at(5, 7), "234578"},
             {at(5, 8), "169"},
             {at(5, 9), "234578"}},
    .taken = {{at(5, 2), "8"}, {at(5, 5), "238"}},
    .number = "169",
    .hint = {"TRIPLA NASCOSTA  169 nelle celle r5c5 , r5c8 , r5c2",
             "HIDDEN TRIPLE 169, cells r5c5 , r5c8 , r5c2"},
    .candidate = painted({{at(5, 2), "169"}, {at(5, 5), "169"}, {at(5, 8), "169"}}, "green"),
    .done = {"inserito 169 in r5c5 , r5c8 , r5c2", "entered 169 in r5c5 , r5c8 , r5c2"},
    .log = {{"TRIPLA NASCOSTA  169 nelle celle r5c5 , r5c8 , r5c2",
             "HIDDEN TRIPLE 169, cells r5c5 , r5c8 , r5c2"},
            {" * inserito 169 in r5c5 , r5c8 , r5c2", " * entered 169 in r5c5 , r5c8 , r5c2"}},
    .lesson = {{.adds = hiddentriplerule + hiddentriplerowlesson,
                .candidate =
                    painted({{at(5, 2), "8"}, {at(5, 5), "238"}}, "red",
                            painted({{at(5, 2), "169"}, {at(5, 5), "169"}, {at(5, 8), "169"}}, "green")),
                .left = painted({{at(5, 2), "8"}, {at(5, 5), "238"}}, "red")}},
    .closing = {"rimossi extra numeri da r5c5 , r5c8 , r5c2",
                "deleted extra cendidates from r5c5 , r5c8 , r5c2"},
};

const Said hiddentriplecolumnlesson = {
    "nella colonna 9 le celle r3c9 e r6c9 e r9c9 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 2 e 4 e 7\r\n"
    "Ne consegue che nella colonna 9 i numeri 2 e 4 e 7 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 3 celle  2 e 4 e 7\r\n"
    "ogni altro candidato diverso da  ",
    "in the column 9 the green cells r3c9 e r6c9 e r9c9\r\n"
    "are the only ones to contain the candidates 247\r\n"
    "Therefore in the column 9 i numeri 247 are forced in one of the 3 green cells\r\n"
    "we can delete from the 3 cells  2 and 4 and 7\r\n"
    "any other candidate different from  ",
};
const Example hiddentriplecolumn = {
    .name = "HiddenTripleInColumn",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(1, 9), "135689"},
             {at(2, 9), "135689"},
             {at(3, 9), "2489"},
             {at(4, 9), "135689"},
             {at(5, 9), "135689"},
             {at(6, 9), "27"},
             {at(7, 9), "135689"},
             {at(8, 9), "135689"},
             {at(9, 9), "347"}},
    .taken = {{at(3, 9), "89"}, {at(9, 9), "3"}},
    .number = "247",
    .hint = {"TRIPLA NASCOSTA  247 nelle celle r3c9 , r6c9 , r9c9",
             "HIDDEN TRIPLE 247, cells r3c9 , r6c9 , r9c9"},
    .candidate = painted({{at(3, 9), "247"}, {at(6, 9), "247"}, {at(9, 9), "247"}}, "green"),
    .done = {"inserito 247 in r3c9 , r6c9 , r9c9", "entered 247 in r3c9 , r6c9 , r9c9"},
    .log = {{"TRIPLA NASCOSTA  247 nelle celle r3c9 , r6c9 , r9c9",
             "HIDDEN TRIPLE 247, cells r3c9 , r6c9 , r9c9"},
            {" * inserito 247 in r3c9 , r6c9 , r9c9", " * entered 247 in r3c9 , r6c9 , r9c9"}},
    .lesson = {{.adds = hiddentriplerule + hiddentriplecolumnlesson,
                .candidate =
                    painted({{at(3, 9), "89"}, {at(9, 9), "3"}}, "red",
                            painted({{at(3, 9), "247"}, {at(6, 9), "247"}, {at(9, 9), "247"}}, "green")),
                .left = painted({{at(3, 9), "89"}, {at(9, 9), "3"}}, "red")}},
    .closing = {"rimossi extra numeri da r3c9 , r6c9 , r9c9",
                "deleted extra cendidates from r3c9 , r6c9 , r9c9"},
};

// 3 has r2c6 and r3c5, then 7 adds r1c4.
const Said hiddentripleblocklesson = {
    "nel settore 2 le celle r2c6 e r3c5 e r1c4 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 3 e 7 e 8\r\n"
    "Ne consegue che nel settore 2 i numeri 3 e 7 e 8 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 3 celle  3 e 7 e 8\r\n"
    "ogni altro candidato diverso da  ",
    "in the block 2 the green cells r2c6 e r3c5 e r1c4\r\n"
    "are the only ones to contain the candidates 378\r\n"
    "Therefore in the block 2 i numeri 378 are forced in one of the 3 green cells\r\n"
    "we can delete from the 3 cells  3 and 7 and 8\r\n"
    "any other candidate different from  ",
};
const Example hiddentripleblock = {
    .name = "HiddenTripleInBlock",
    .tag = "findtriple",
    .level = 6,
    .step = frmmain::findtriple,
    .twin = frmgenerazione::findtriple,
    .held = {{at(1, 4), "1578"},
             {at(1, 5), "124569"},
             {at(1, 6), "124569"},
             {at(2, 4), "124569"},
             {at(2, 5), "124569"},
             {at(2, 6), "237"},
             {at(3, 4), "124569"},
             {at(3, 5), "38"},
             {at(3, 6), "124569"}},
    .taken = {{at(1, 4), "15"}, {at(2, 6), "2"}},
    .number = "378",
    .hint = {"TRIPLA NASCOSTA  378 nelle celle r2c6 , r3c5 , r1c4",
             "HIDDEN TRIPLE 378, cells r2c6 , r3c5 , r1c4"},
    .candidate = painted({{at(1, 4), "378"}, {at(2, 6), "378"}, {at(3, 5), "378"}}, "green"),
    .done = {"inserito 378 in r2c6 , r3c5 , r1c4", "entered 378 in r2c6 , r3c5 , r1c4"},
    .log = {{"TRIPLA NASCOSTA  378 nelle celle r2c6 , r3c5 , r1c4",
             "HIDDEN TRIPLE 378, cells r2c6 , r3c5 , r1c4"},
            {" * inserito 378 in r2c6 , r3c5 , r1c4", " * entered 378 in r2c6 , r3c5 , r1c4"}},
    .lesson = {{.adds = hiddentriplerule + hiddentripleblocklesson,
                .candidate =
                    painted({{at(1, 4), "15"}, {at(2, 6), "2"}}, "red",
                            painted({{at(1, 4), "378"}, {at(2, 6), "378"}, {at(3, 5), "378"}}, "green")),
                .left = painted({{at(1, 4), "15"}, {at(2, 6), "2"}}, "red")}},
    .closing = {"rimossi extra numeri da r2c6 , r3c5 , r1c4",
                "deleted extra cendidates from r2c6 , r3c5 , r1c4"},
};

const Said hiddenquadrule = {
    "QUADRUPLA NASCOSTA - LIVELLO 7\r\n"
    "Se 4 celle di un gruppo (settore riga o colonna), contengono 4 candidati identici e nessuna altra cella del "
    "gruppo contiene i 4 candidati, allora possiamo escludere tutti gli altri candidati da queste 4 celle\r\n"
    "==============================================\r\n",
    "HIDDEN QUAD - LEVEL 7\r\n"
    "If 4 cells in a house (block, row, column), contain exactly the same 4 candidates and no other cell of the "
    "house contains the 4 candidates, then we can delete all the other candidates from this 4 cells\r\n"
    "==============================================\r\n",
};

const Said hiddenquadrowlesson = {
    "nella riga 3 le celle r3c4 e r3c8 e r3c2 e r3c6 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 2 e 4 e 6 e 9\r\n"
    "Ne consegue che nella riga 3 i numeri 2 e 4 e 6 e 9 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 4 celle  2 e 4 e 6 e 9\r\n"
    "ogni altro candidato diverso da  ",
    "in the row 3 the green cells r3c4 e r3c8 e r3c2 e r3c6\r\n"
    "are the only ones to contain the candidates 2469\r\n"
    "Therefore in the row 3 i numeri 2469 are forced in one of the 4 green cells\r\n"
    "we can delete from the 4 cells  2 and 4 and 6 and 9\r\n"
    "any other candidate different from  ",
};
const Example hiddenquadrow = {
    .name = "HiddenQuadInRow",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(3, 1), "13578"},
             {at(3, 2), "1349"},
             {at(3, 3), "13578"},
             {at(3, 4), "2457"},
             {at(3, 5), "13578"},
             {at(3, 6), "69"},
             {at(3, 7), "13578"},
             {at(3, 8), "268"},
             {at(3, 9), "13578"}},
    .taken = {{at(3, 2), "13"}, {at(3, 4), "57"}, {at(3, 8), "8"}},
    .number = "2469",
    .hint = {"QUADRUPLA NASCOSTA  2469 nelle celle r3c4 , r3c8 , r3c2 , r3c6",
             "HIDDEN QUAD 2469, cells r3c4 , r3c8 , r3c2 , r3c6"},
    .candidate =
        painted({{at(3, 2), "2469"}, {at(3, 4), "2469"}, {at(3, 6), "2469"}, {at(3, 8), "2469"}}, "green"),
    .done = {"inserito 2469 in r3c4 , r3c8 , r3c2 , r3c6", "entered 2469 in r3c4 , r3c8 , r3c2 , r3c6"},
    .log = {{"QUADRUPLA NASCOSTA  2469 nelle celle r3c4 , r3c8 , r3c2 , r3c6",
             "HIDDEN QUAD 2469, cells r3c4 , r3c8 , r3c2 , r3c6"},
            {" * inserito 2469 in r3c4 , r3c8 , r3c2 , r3c6",
             " * entered 2469 in r3c4 , r3c8 , r3c2 , r3c6"}},
    .lesson = {{.adds = hiddenquadrule + hiddenquadrowlesson,
                .candidate = painted(
                    {{at(3, 2), "13"}, {at(3, 4), "57"}, {at(3, 8), "8"}}, "red",
                    painted({{at(3, 2), "2469"}, {at(3, 4), "2469"}, {at(3, 6), "2469"}, {at(3, 8), "2469"}},
                            "green")),
                .left = painted({{at(3, 2), "13"}, {at(3, 4), "57"}, {at(3, 8), "8"}}, "red")}},
    .closing = {"rimossi extra numeri da r3c4 , r3c8 , r3c2 , r3c6",
                "deleted extra cendidates from r3c4 , r3c8 , r3c2 , r3c6"},
};

const Said hiddenquadcolumnlesson = {
    "nella colonna 8 le celle r5c8 e r9c8 e r1c8 e r4c8 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 3 e 6 e 7 e 8\r\n"
    "Ne consegue che nella colonna 8 i numeri 3 e 6 e 7 e 8 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 4 celle  3 e 6 e 7 e 8\r\n"
    "ogni altro candidato diverso da  ",
    "in the column 8 the green cells r5c8 e r9c8 e r1c8 e r4c8\r\n"
    "are the only ones to contain the candidates 3678\r\n"
    "Therefore in the column 8 i numeri 3678 are forced in one of the 4 green cells\r\n"
    "we can delete from the 4 cells  3 and 6 and 7 and 8\r\n"
    "any other candidate different from  ",
};
const Example hiddenquadcolumn = {
    .name = "HiddenQuadInColumn",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(1, 8), "268"},
             {at(2, 8), "12459"},
             {at(3, 8), "12459"},
             {at(4, 8), "78"},
             {at(5, 8), "1369"},
             {at(6, 8), "12459"},
             {at(7, 8), "12459"},
             {at(8, 8), "12459"},
             {at(9, 8), "3457"}},
    .taken = {{at(1, 8), "2"}, {at(5, 8), "19"}, {at(9, 8), "45"}},
    .number = "3678",
    .hint = {"QUADRUPLA NASCOSTA  3678 nelle celle r5c8 , r9c8 , r1c8 , r4c8",
             "HIDDEN QUAD 3678, cells r5c8 , r9c8 , r1c8 , r4c8"},
    .candidate =
        painted({{at(1, 8), "3678"}, {at(4, 8), "3678"}, {at(5, 8), "3678"}, {at(9, 8), "3678"}}, "green"),
    .done = {"inserito 3678 in r5c8 , r9c8 , r1c8 , r4c8", "entered 3678 in r5c8 , r9c8 , r1c8 , r4c8"},
    .log = {{"QUADRUPLA NASCOSTA  3678 nelle celle r5c8 , r9c8 , r1c8 , r4c8",
             "HIDDEN QUAD 3678, cells r5c8 , r9c8 , r1c8 , r4c8"},
            {" * inserito 3678 in r5c8 , r9c8 , r1c8 , r4c8",
             " * entered 3678 in r5c8 , r9c8 , r1c8 , r4c8"}},
    .lesson = {{.adds = hiddenquadrule + hiddenquadcolumnlesson,
                .candidate = painted(
                    {{at(1, 8), "2"}, {at(5, 8), "19"}, {at(9, 8), "45"}}, "red",
                    painted({{at(1, 8), "3678"}, {at(4, 8), "3678"}, {at(5, 8), "3678"}, {at(9, 8), "3678"}},
                            "green")),
                .left = painted({{at(1, 8), "2"}, {at(5, 8), "19"}, {at(9, 8), "45"}}, "red")}},
    .closing = {"rimossi extra numeri da r5c8 , r9c8 , r1c8 , r4c8",
                "deleted extra cendidates from r5c8 , r9c8 , r1c8 , r4c8"},
};

const Said hiddenquadblocklesson = {
    "nel settore 7 le celle r8c2 e r9c3 e r7c1 e r7c2 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 1 e 3 e 5 e 8\r\n"
    "Ne consegue che nel settore 7 i numeri 1 e 3 e 5 e 8 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 4 celle  1 e 3 e 5 e 8\r\n"
    "ogni altro candidato diverso da  ",
    "in the block 7 the green cells r8c2 e r9c3 e r7c1 e r7c2\r\n"
    "are the only ones to contain the candidates 1358\r\n"
    "Therefore in the block 7 i numeri 1358 are forced in one of the 4 green cells\r\n"
    "we can delete from the 4 cells  1 and 3 and 5 and 8\r\n"
    "any other candidate different from  ",
};
const Example hiddenquadblock = {
    .name = "HiddenQuadInBlock",
    .tag = "findquad",
    .level = 7,
    .step = frmmain::findquad,
    .twin = frmgenerazione::findquad,
    .held = {{at(7, 1), "389"},
             {at(7, 2), "58"},
             {at(7, 3), "24679"},
             {at(8, 1), "24679"},
             {at(8, 2), "1689"},
             {at(8, 3), "24679"},
             {at(9, 1), "24679"},
             {at(9, 2), "24679"},
             {at(9, 3), "135"}},
    .taken = {{at(7, 1), "9"}, {at(8, 2), "69"}},
    .number = "1358",
    .hint = {"QUADRUPLA NASCOSTA  1358 nelle celle r8c2 , r9c3 , r7c1 , r7c2",
             "HIDDEN QUAD 1358, cells r8c2 , r9c3 , r7c1 , r7c2"},
    .candidate =
        painted({{at(7, 1), "1358"}, {at(7, 2), "1358"}, {at(8, 2), "1358"}, {at(9, 3), "1358"}}, "green"),
    .done = {"inserito 1358 in r8c2 , r9c3 , r7c1 , r7c2", "entered 1358 in r8c2 , r9c3 , r7c1 , r7c2"},
    .log = {{"QUADRUPLA NASCOSTA  1358 nelle celle r8c2 , r9c3 , r7c1 , r7c2",
             "HIDDEN QUAD 1358, cells r8c2 , r9c3 , r7c1 , r7c2"},
            {" * inserito 1358 in r8c2 , r9c3 , r7c1 , r7c2",
             " * entered 1358 in r8c2 , r9c3 , r7c1 , r7c2"}},
    .lesson = {{.adds = hiddenquadrule + hiddenquadblocklesson,
                .candidate = painted(
                    {{at(7, 1), "9"}, {at(8, 2), "69"}}, "red",
                    painted({{at(7, 1), "1358"}, {at(7, 2), "1358"}, {at(8, 2), "1358"}, {at(9, 3), "1358"}},
                            "green")),
                .left = painted({{at(7, 1), "9"}, {at(8, 2), "69"}}, "red")}},
    .closing = {"rimossi extra numeri da r8c2 , r9c3 , r7c1 , r7c2",
                "deleted extra cendidates from r8c2 , r9c3 , r7c1 , r7c2"},
};

EXAMPLES(Subsets, &nakedtriplerow, &nakedtriplecolumn, &nakedtripleblock, &nakedquadrow, &nakedquadcolumn,
         &nakedquadblock, &hiddentriplerow, &hiddentriplecolumn, &hiddentripleblock, &hiddenquadrow,
         &hiddenquadcolumn, &hiddenquadblock);

// ---- what is found, and in which order --------------------------------------------------------------------

class Subsets : public Program {
 protected:
  Subsets() { put(emptyboard); }

  std::string triple() { return hintof(player, frmmain::findtriple); }
  std::string quad() { return hintof(player, frmmain::findquad); }
  static std::string done() { return frmmain::txthint.text; }
  /// The other cells of a row hold these digits alone.
  static void leaverest(int number, const std::vector<int>& but, const std::string& digits) {
    std::vector<int> members;
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
  for (const Example* quad : {&nakedquadrow, &nakedquadcolumn}) {
    put(emptyboard);
    leave(quad->held);
    for (const KeyRow& row : toolbar1rows())
      if (row.control == &frmmain::Toolbar1::nakedtriple) {
        player.script = {go};
        player.event([&] { Toolbar1_ButtonClick(row); });
      }
    EXPECT_EQ(done(), quad->done.en);
    EXPECT_TRUE(foundflag);
  }
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0].hint, nakedquadrow.hint.en);
  EXPECT_EQ(player.frames[1].hint, nakedquadcolumn.hint.en);
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
