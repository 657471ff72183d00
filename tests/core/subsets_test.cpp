// Triples and quads: which one is found, what step, twin and explanation say, paint and do, and what a stop
// leaves behind.
#include "subsets.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"

namespace gradino::tests {
namespace {

// An empty board has all candidates; each test takes away what it needs, so that no single is left behind.

using Digits = std::vector<std::pair<int, std::string>>;  ///< cell and digits

struct Case {
  const char* name;
  const char* tag;
  int level;
  Digits held;     ///< what the house's cells hold; all other cells hold all
  Digits members;  ///< by cell and the digits painted green
  Digits victims;
  std::string number;
  std::string hintit, hinten, doneit, doneen, detailit, detailen;
  std::string lessonit, lessonen, closeit, closeen;
};

const Case nakedtriplerow = {
    "NakedTripleInRow",
    "findtriple",
    6,
    {{at(1, 1), "349"},
     {at(1, 2), "1245678"},
     {at(1, 3), "125678"},
     {at(1, 4), "125678"},
     {at(1, 5), "34"},
     {at(1, 6), "12356789"},
     {at(1, 7), "125678"},
     {at(1, 8), "125678"},
     {at(1, 9), "49"}},
    {{at(1, 1), "349"}, {at(1, 5), "349"}, {at(1, 9), "349"}},
    {{at(1, 2), "4"}, {at(1, 6), "39"}},
    "349",
    "TRIPLA NUDA  349 nelle celle r1c1 , r1c5 , r1c9",
    "NAKED TRIPLE 349, cells r1c1 , r1c5 , r1c9",
    "eliminato 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
    "deleted 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
    " * eliminato 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
    " * deleted 4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
    "TRIPLA NUDA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi tre candidati, allora "
    "possiamo eliminare i tre candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n"
    "nella riga 1 le celle r1c1 e r1c5 e r1c9 (colorate in verde)\r\n"
    "contengono solamente 3 e 4 e 9\r\n"
    "Ne consegue che nella riga 1 i numeri 3 e 4 e 9 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella della riga 1\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "4 da r1c2 , 3 da r1c6 , 9 da r1c6 , ",
    "NAKED TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates, then we can delete the 3 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n"
    "in the row 1 the green cells r1c1 e r1c5 e r1c9\r\n"
    "contain only 349\r\n"
    "Therefore in the row 1 i numeri 349 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the row 1\r\n"
    "in our case we can delete them from: \r\n"
    "4 from r1c2 , 3 from r1c6 , 9 from r1c6 , ",
    "eliminato i numeri 349 da r1c1 ,  r1c5 ,  r1c6 ,  r1c1 ,  r1c2 ,  r1c5 ,  r1c9 ,  r1c1 ,  r1c6 ,  r1c9 , ",
    "deleted number 349 from r1c1 ,  r1c5 ,  r1c6 ,  r1c1 ,  r1c2 ,  r1c5 ,  r1c9 ,  r1c1 ,  r1c6 ,  r1c9 , ",
};

// Three cells of two candidates each. In a column the English words are shorter.
const Case nakedtriplecolumn = {
    "NakedTripleInColumn",
    "findtriple",
    6,
    {{at(1, 6), "23456789"},
     {at(2, 6), "15"},
     {at(3, 6), "234679"},
     {at(4, 6), "234679"},
     {at(5, 6), "18"},
     {at(6, 6), "234679"},
     {at(7, 6), "1234679"},
     {at(8, 6), "234679"},
     {at(9, 6), "58"}},
    {{at(2, 6), "158"}, {at(5, 6), "158"}, {at(9, 6), "158"}},
    {{at(1, 6), "58"}, {at(7, 6), "1"}},
    "158",
    "TRIPLA NUDA  158 nelle celle r2c6 , r5c6 , r9c6",
    "NAKED TRIPLE 158, cells r2c6 , r5c6 , r9c6",
    "eliminato 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
    "deleted 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
    " * eliminato 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
    " * deleted 5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
    "TRIPLA NUDA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi tre candidati, allora "
    "possiamo eliminare i tre candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n"
    "nella colonna 6 le celle r2c6 e r5c6 e r9c6 (colorate in verde)\r\n"
    "contengono solamente 1 e 5 e 8\r\n"
    "Ne consegue che nella colonna 6 i numeri 1 e 5 e 8 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella della colonna 6\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "5 da r1c6 , 8 da r1c6 , 1 da r7c6 , ",
    "NAKED TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates, then we can delete the 3 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n"
    "in the column 6 the green cells r2c6 e r5c6 e r9c6\r\n"
    "contain only 158\r\n"
    "Therefore in the column 6 i numeri 158 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the column 6\r\n"
    "in our case we can delete: \r\n"
    "5 from r1c6 , 8 from r1c6 , 1 from r7c6 , ",
    "eliminato i numeri 158 da r2c6 ,  r5c6 ,  r7c6 ,  r1c6 ,  r2c6 ,  r9c6 ,  r1c6 ,  r5c6 ,  r9c6 , ",
    "deleted number 158 from r2c6 ,  r5c6 ,  r7c6 ,  r1c6 ,  r2c6 ,  r9c6 ,  r1c6 ,  r5c6 ,  r9c6 , ",
};

const Case nakedtripleblock = {
    "NakedTripleInBlock",
    "findtriple",
    6,
    {{at(4, 4), "267"},
     {at(4, 5), "134589"},
     {at(4, 6), "1234589"},
     {at(5, 4), "134589"},
     {at(5, 5), "134589"},
     {at(5, 6), "26"},
     {at(6, 4), "13456789"},
     {at(6, 5), "67"},
     {at(6, 6), "134589"}},
    {{at(4, 4), "267"}, {at(5, 6), "267"}, {at(6, 5), "267"}},
    {{at(4, 6), "2"}, {at(6, 4), "67"}},
    "267",
    "TRIPLA NUDA  267 nelle celle r4c4 , r5c6 , r6c5",
    "NAKED TRIPLE 267, cells r4c4 , r5c6 , r6c5",
    "eliminato 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
    "deleted 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
    " * eliminato 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
    " * deleted 2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
    "TRIPLA NUDA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi tre candidati, allora "
    "possiamo eliminare i tre candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n"
    "nel settore 5 le celle r4c4 e r5c6 e r6c5 (colorate in verde)\r\n"
    "contengono solamente 2 e 6 e 7\r\n"
    "Ne consegue che nel settore 5 i numeri 2 e 6 e 7 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare i tre candidati da ogni altra cella del settore 5\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "2 da r4c6 , 6 da r6c4 , 7 da r6c4 , ",
    "NAKED TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates, then we can delete the 3 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n"
    "in the block 5 the green cells r4c4 e r5c6 e r6c5\r\n"
    "contain only 267\r\n"
    "Therefore in the block 5 i numeri 267 are forced in one of the 3 green cells\r\n"
    "we can delete the 3 candidates from any other cell of the block 5\r\n"
    "in our case we can delete them from: \r\n"
    "2 from r4c6 , 6 from r6c4 , 7 from r6c4 , ",
    "eliminato i numeri 267 da r4c4 ,  r4c6 ,  r5c6 ,  r4c4 ,  r5c6 ,  r6c4 ,  r6c5 ,  r4c4 ,  r6c4 ,  r6c5 , ",
    "deleted number 267 from r4c4 ,  r4c6 ,  r5c6 ,  r4c4 ,  r5c6 ,  r6c4 ,  r6c5 ,  r4c4 ,  r6c4 ,  r6c5 , ",
};

const Case nakedquadcolumn = {
    "NakedQuadInColumn",
    "findquad",
    7,
    {{at(1, 3), "2579"},
     {at(2, 3), "1234678"},
     {at(3, 3), "13468"},
     {at(4, 3), "257"},
     {at(5, 3), "13468"},
     {at(6, 3), "13468"},
     {at(7, 3), "259"},
     {at(8, 3), "279"},
     {at(9, 3), "134689"}},
    {{at(1, 3), "2579"}, {at(4, 3), "2579"}, {at(7, 3), "2579"}, {at(8, 3), "2579"}},
    {{at(2, 3), "27"}, {at(9, 3), "9"}},
    "2579",
    "QUADRUPLA NUDA  2579 nelle celle r1c3 , r4c3 , r7c3 , r8c3",
    "NAKED QUAD 2579, cells r1c3 , r4c3 , r7c3 , r8c3",
    "eliminato 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
    "deleted 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
    " * eliminato 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
    " * deleted 2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
    "QUADRUPLA NUDA - LIVELLO 7\r\n"
    "Se 4 celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi 4 candidati, allora "
    "possiamo eliminare i 4 candidati da tutte le altre celle del gruppo\r\n"
    "==============================================\r\n"
    "nella colonna 3 le celle r1c3 e r4c3 e r7c3 e r8c3 (colorate in verde)\r\n"
    "contengono solamente 2 e 5 e 7 e 9\r\n"
    "Ne consegue che nella colonna 3 i numeri 2 e 5 e 7 e 9 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare i 4 candidati da ogni altra cella della colonna 3\r\n"
    "nel nostro caso li possiamo  eliminare dalle celle rosse: \r\n"
    "2 da r2c3 , 7 da r2c3 , 9 da r9c3 , ",
    "NAKED QUAD - LEVEL 7\r\n"
    "If 4 cells in a house (block, row, column), contain exactly the same 4 candidates, then we can delete the 4 "
    "candidates from all the cells of the house\r\n"
    "==============================================\r\n"
    "in the column 3 the green cells r1c3 e r4c3 e r7c3 e r8c3\r\n"
    "contain only 2579\r\n"
    "Therefore in the column 3 i numeri 2579 are forced in one of the 4 green cells\r\n"
    "we can delete the 4 candidates from any other cell of the column 3\r\n"
    "in our case we can delete them from: \r\n"
    "2 from r2c3 , 7 from r2c3 , 9 from r9c3 , ",
    "eliminato i numeri 2579 da r1c3 ,  r2c3 ,  r4c3 ,  r7c3 ,  r8c3 ,  r1c3 ,  r4c3 ,  r7c3 ,  r1c3 ,  r2c3 ,  "
    "r4c3 ,  r8c3 ,  r1c3 ,  r7c3 ,  r8c3 ,  r9c3 , ",
    "deleted number 2579 from r1c3 ,  r2c3 ,  r4c3 ,  r7c3 ,  r8c3 ,  r1c3 ,  r4c3 ,  r7c3 ,  r1c3 ,  r2c3 ,  "
    "r4c3 ,  r8c3 ,  r1c3 ,  r7c3 ,  r8c3 ,  r9c3 , ",
};

// The cells stand in the order of the digits' places: 1 has r5c5 and r5c8, 6 has r5c2 and r5c8. Digits that a
// cell doesn't hold are green too, and r5c8 is bare already.
const Case hiddentriplerow = {
    "HiddenTripleInRow",
    "findtriple",
    6,
    {{at(5, 1), "234578"},
     {at(5, 2), "689"},
     {at(5, 3), "234578"},
     {at(5, 4), "234578"},
     {at(5, 5), "12389"},
     {at(5, 6), "234578"},
     {at(5, 7), "234578"},
     {at(5, 8), "169"},
     {at(5, 9), "234578"}},
    {{at(5, 2), "169"}, {at(5, 5), "169"}, {at(5, 8), "169"}},
    {{at(5, 2), "8"}, {at(5, 5), "238"}},
    "169",
    "TRIPLA NASCOSTA  169 nelle celle r5c5 , r5c8 , r5c2",
    "HIDDEN TRIPLE 169, cells r5c5 , r5c8 , r5c2",
    "inserito 169 in r5c5 , r5c8 , r5c2",
    "entered 169 in r5c5 , r5c8 , r5c2",
    " * inserito 169 in r5c5 , r5c8 , r5c2",
    " * entered 169 in r5c5 , r5c8 , r5c2",
    "TRIPLA NASCOSTA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono tre candidati identici e nessuna altra cella "
    "del gruppo contiene i tre candidati, allora possiamo escludere tutti gli altri candidati da queste tre "
    "celle\r\n"
    "==============================================\r\n"
    "nella riga 5 le celle r5c5 e r5c8 e r5c2 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 1 e 6 e 9\r\n"
    "Ne consegue che nella riga 5 i numeri 1 e 6 e 9 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 3 celle  1 e 6 e 9\r\n"
    "ogni altro candidato diverso da  ",
    "HIDDEN TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates and no other cell of the "
    "house contains the 3 candidates, then we can delete all the other candidates from this 3 cells\r\n"
    "==============================================\r\n"
    "in the row 5 the green cells r5c5 e r5c8 e r5c2\r\n"
    "are the only ones to contain the candidates 169\r\n"
    "Therefore in the row 5 i numeri 169 are forced in one of the 3 green cells\r\n"
    "we can delete from the 3 cells  1 and 6 and 9\r\n"
    "any other candidate different from  ",
    "rimossi extra numeri da r5c5 , r5c8 , r5c2",
    "deleted extra cendidates from r5c5 , r5c8 , r5c2",
};

const Case hiddentriplecolumn = {
    "HiddenTripleInColumn",
    "findtriple",
    6,
    {{at(1, 9), "135689"},
     {at(2, 9), "135689"},
     {at(3, 9), "2489"},
     {at(4, 9), "135689"},
     {at(5, 9), "135689"},
     {at(6, 9), "27"},
     {at(7, 9), "135689"},
     {at(8, 9), "135689"},
     {at(9, 9), "347"}},
    {{at(3, 9), "247"}, {at(6, 9), "247"}, {at(9, 9), "247"}},
    {{at(3, 9), "89"}, {at(9, 9), "3"}},
    "247",
    "TRIPLA NASCOSTA  247 nelle celle r3c9 , r6c9 , r9c9",
    "HIDDEN TRIPLE 247, cells r3c9 , r6c9 , r9c9",
    "inserito 247 in r3c9 , r6c9 , r9c9",
    "entered 247 in r3c9 , r6c9 , r9c9",
    " * inserito 247 in r3c9 , r6c9 , r9c9",
    " * entered 247 in r3c9 , r6c9 , r9c9",
    "TRIPLA NASCOSTA - LIVELLO 6\r\n"
    "Se tre celle di un gruppo (settore riga o colonna), contengono tre candidati identici e nessuna altra cella "
    "del gruppo contiene i tre candidati, allora possiamo escludere tutti gli altri candidati da queste tre "
    "celle\r\n"
    "==============================================\r\n"
    "nella colonna 9 le celle r3c9 e r6c9 e r9c9 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 2 e 4 e 7\r\n"
    "Ne consegue che nella colonna 9 i numeri 2 e 4 e 7 devono stare obbligatoriamente in una delle tre celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 3 celle  2 e 4 e 7\r\n"
    "ogni altro candidato diverso da  ",
    "HIDDEN TRIPLE - LEVEL 6\r\n"
    "If 3 cells in a house (block, row, column), contain exactly the same 3 candidates and no other cell of the "
    "house contains the 3 candidates, then we can delete all the other candidates from this 3 cells\r\n"
    "==============================================\r\n"
    "in the column 9 the green cells r3c9 e r6c9 e r9c9\r\n"
    "are the only ones to contain the candidates 247\r\n"
    "Therefore in the column 9 i numeri 247 are forced in one of the 3 green cells\r\n"
    "we can delete from the 3 cells  2 and 4 and 7\r\n"
    "any other candidate different from  ",
    "rimossi extra numeri da r3c9 , r6c9 , r9c9",
    "deleted extra cendidates from r3c9 , r6c9 , r9c9",
};

const Case hiddenquadblock = {
    "HiddenQuadInBlock",
    "findquad",
    7,
    {{at(7, 1), "389"},
     {at(7, 2), "58"},
     {at(7, 3), "24679"},
     {at(8, 1), "24679"},
     {at(8, 2), "1689"},
     {at(8, 3), "24679"},
     {at(9, 1), "24679"},
     {at(9, 2), "24679"},
     {at(9, 3), "135"}},
    {{at(7, 1), "1358"}, {at(7, 2), "1358"}, {at(8, 2), "1358"}, {at(9, 3), "1358"}},
    {{at(7, 1), "9"}, {at(8, 2), "69"}},
    "1358",
    "QUADRUPLA NASCOSTA  1358 nelle celle r8c2 , r9c3 , r7c1 , r7c2",
    "HIDDEN QUAD 1358, cells r8c2 , r9c3 , r7c1 , r7c2",
    "inserito 1358 in r8c2 , r9c3 , r7c1 , r7c2",
    "entered 1358 in r8c2 , r9c3 , r7c1 , r7c2",
    " * inserito 1358 in r8c2 , r9c3 , r7c1 , r7c2",
    " * entered 1358 in r8c2 , r9c3 , r7c1 , r7c2",
    "QUADRUPLA NASCOSTA - LIVELLO 7\r\n"
    "Se 4 celle di un gruppo (settore riga o colonna), contengono 4 candidati identici e nessuna altra cella del "
    "gruppo contiene i 4 candidati, allora possiamo escludere tutti gli altri candidati da queste 4 celle\r\n"
    "==============================================\r\n"
    "nel settore 7 le celle r8c2 e r9c3 e r7c1 e r7c2 (colorate in verde)\r\n"
    "sono le uniche a contenere i candidati 1 e 3 e 5 e 8\r\n"
    "Ne consegue che nel settore 7 i numeri 1 e 3 e 5 e 8 devono stare obbligatoriamente in una delle 4 celle "
    "verdi\r\n"
    "possiamo quindi eliminare dalle 4 celle  1 e 3 e 5 e 8\r\n"
    "ogni altro candidato diverso da  ",
    "HIDDEN QUAD - LEVEL 7\r\n"
    "If 4 cells in a house (block, row, column), contain exactly the same 4 candidates and no other cell of the "
    "house contains the 4 candidates, then we can delete all the other candidates from this 4 cells\r\n"
    "==============================================\r\n"
    "in the block 7 the green cells r8c2 e r9c3 e r7c1 e r7c2\r\n"
    "are the only ones to contain the candidates 1358\r\n"
    "Therefore in the block 7 i numeri 1358 are forced in one of the 4 green cells\r\n"
    "we can delete from the 4 cells  1 and 3 and 5 and 8\r\n"
    "any other candidate different from  ",
    "rimossi extra numeri da r8c2 , r9c3 , r7c1 , r7c2",
    "deleted extra cendidates from r8c2 , r9c3 , r7c1 , r7c2",
};

Paint painted(const Digits& marks, const char* colour) {
  Paint paint;
  for (const auto& [cell, digits] : marks)
    for (char digit : digits) paint[cell * 10 + digit - '0'] = colour;
  return paint;
}

void expectnopaint() {
  const Frame now = look();
  EXPECT_EQ(now.Text1, Paint{});
  EXPECT_EQ(now.Text2, Paint{});
  EXPECT_EQ(now.candidate, Paint{});
}

/// An empty board whose candidates can be set cell by cell.
class Marked : public Program {
 protected:
  Marked() { put(emptyboard); }
  void leave(int cell, const std::string& digits) {
    std::string others;
    for (char digit = '1'; digit <= '9'; ++digit)
      if (digits.find(digit) == std::string::npos && hascandidate(cell, digit - '0')) others += digit;
    eliminate(cell, others);
  }
  void leave(const Digits& cells_) {
    for (const auto& [cell, digits] : cells_) leave(cell, digits);
  }
};

class EachSubset : public Marked, public testing::WithParamInterface<std::tuple<const Case*, int>> {
 protected:
  EachSubset() {
    speak(std::get<int>(GetParam()));
    leave(one().held);
    for (const auto& [cell, digits] : one().victims) eliminate(cell, digits);
    after = theboard();
    put(emptyboard);
    leave(one().held);
    before = theboard();
  }
  static const Case& one() { return *std::get<const Case*>(GetParam()); }
  static const std::string& in(const std::string& it, const std::string& en) {
    return std::get<int>(GetParam()) == italian ? it : en;
  }
  static bool istriple() { return one().level == 6; }
  static void step() { istriple() ? frmmain::findtriple() : frmmain::findquad(); }
  static void twin() { istriple() ? frmgenerazione::findtriple() : frmgenerazione::findquad(); }

  static Frame shownframe() {
    return {.tag = one().tag,
            .hint = in(one().hintit, one().hinten),
            .number = one().number,
            .activity = {},
            .Text1 = {},
            .Text2 = {},
            .candidate = painted(one().members, "green")};
  }
  static Frame arguedframe() {
    Frame frame = shownframe();
    frame.activity = in(one().lessonit, one().lessonen);
    frame.candidate.merge(painted(one().victims, "red"));
    return frame;
  }
  static std::string loglines() {
    return "\r\n" + in(one().hintit, one().hinten) + "\r\n" + in(one().detailit, one().detailen);
  }

  Board before, after;
};

TEST_P(EachSubset, IsTheNextStepShowsItselfAndOnGoActs) {
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], shownframe());
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  for (int cell = 0; cell < 81; ++cell) EXPECT_EQ(visiblemarks(cell), candstr(cell));
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(EachSubset, AStopLeavesTheBoardAndFoundflagSet) {
  player.script = {stop};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(frmmain::txthint.text, in(one().hintit, one().hinten));
  EXPECT_EQ(steptag, one().tag);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(EachSubset, TwinLogsCountsAndActsWithoutABox) {
  frmmain::txthint.text = frmmain::Text5.text = steptag = "as it was";
  twin();
  EXPECT_EQ(Frmlog::Text3.text, loglines());
  EXPECT_EQ(logcount, 2);
  std::string commas;
  for (int mask : before.candmask) commas += std::to_string(mask) + ",";
  EXPECT_EQ(logcands(1), commas);
  EXPECT_EQ(logcands(2), "");
  EXPECT_EQ(runninglevel, one().level);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), level == one().level ? 1 : 0);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_EQ(frmmain::Text5.text, "as it was");
  EXPECT_EQ(steptag, "as it was");
  for (int cell = 0; cell < 81; ++cell)
    EXPECT_EQ(visiblemarks(cell), before.candstr[static_cast<std::size_t>(cell)]);
  expectnopaint();
}

TEST_P(EachSubset, TwinInALongJobWritesBothLinesButCountsTheDetailAlone) {
  const Job job("genera");
  runninglevel = 8;
  twin();
  EXPECT_EQ(Frmlog::Text3.text, loglines());
  EXPECT_EQ(logcount, 1);
  EXPECT_EQ(logcands(0), "");
  EXPECT_EQ(logcands(1), "");
  EXPECT_EQ(runninglevel, 8);
  EXPECT_EQ(levelcount(one().level), 1);
}

TEST_P(EachSubset, ExplanationArguesAndItsGoCarriesTheStepOut) {
  player.script = {help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[1], arguedframe());
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  expectnopaint();
}

TEST_P(EachSubset, ExplanationClosesWithItsCellsAndAWhiteBoard) {
  player.script = {[&] {
                     help();
                     EXPECT_EQ(frmmain::txthint.text, in(one().closeit, one().closeen));
                     EXPECT_EQ(theboard(), before);
                     expectnopaint();
                   },
                   go};
  player.event(step);
  EXPECT_TRUE(player.script.empty());
}

TEST_P(EachSubset, AStopInTheExplanationStopsTheStepAndLeavesTheWindowOpen) {
  player.script = {help, stop};
  player.event(step);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_TRUE(frmactivity::visible);
  EXPECT_EQ(look().candidate, painted(one().victims, "red"));
  EXPECT_EQ(frmmain::txthint.text, in(one().hintit, one().hinten));
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(foundflag);
}

// Menus work during a wait, and what they start in the generator's form has no window of its own.
TEST_P(EachSubset, ATwinDuringTheWaitLeavesTheExplanationAlone) {
  player.script = {[&] {
                     const Board board = theboard();
                     put(emptyboard);
                     leave(at(9, 1), "124");
                     leave(at(9, 4), "124");
                     leave(at(9, 7), "124");
                     frmgenerazione::findtriple();
                     EXPECT_EQ(levelcount(6), 1);
                     put(emptyboard);
                     leave(one().held);
                     EXPECT_EQ(theboard(), board);
                   },
                   help, go};
  player.event(step);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[2], arguedframe());
  EXPECT_EQ(theboard(), after);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, EachSubset,
    testing::Combine(testing::Values(&nakedtriplerow, &nakedtriplecolumn, &nakedtripleblock, &nakedquadcolumn,
                                     &hiddentriplerow, &hiddentriplecolumn, &hiddenquadblock),
                     testing::Values(english, italian)),
    [](auto& p) {
      return std::string(std::get<0>(p.param)->name) +
             (std::get<1>(p.param) == english ? "English" : "Italian");
    });

// ---- what is found, and in which order --------------------------------------------------------------------

class Subsets : public Marked {
 protected:
  /// The hint of the one wait, or nothing.
  std::string step(void (*routine)()) {
    player.script = {go};
    player.frames.clear();
    player.event(routine);
    return player.frames.empty() ? "" : player.frames[0].hint;
  }
  std::string triple() { return step(frmmain::findtriple); }
  std::string quad() { return step(frmmain::findquad); }
  static std::string done() { return frmmain::txthint.text; }
  /// The other cells of a row hold these digits alone.
  void leaverest(int row, std::initializer_list<int> but, const std::string& digits) {
    for (int col = 1; col <= 9; ++col)
      if (std::find(but.begin(), but.end(), col) == but.end()) leave(at(row, col), digits);
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
