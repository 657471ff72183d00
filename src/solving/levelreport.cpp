#include "levelreport.h"

#include <string>

#include <fmt/format.h>

#include "boxes.h"
#include "gradestate.h"
#include "library.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

/// What a level is called and what one step of it weighs. From 8 on one name serves both languages.
struct Level {
  Words name;
  int weight;
};

// Loops weigh more than the forcing chains above them, and 9 more than 10: that is the scale.
// clang-format off
constexpr std::array<Level, 22> levels{{
    /*  0 */ {{" BANALE - numeri obbligati dalla posizione dei simili",
               "VERY EASY- numbers forced by position of similar"},                        0},
    /*  1 */ {{" FACILE - Hidden Single , Unica cella che può contenere un numero",
               "EASY - Hidden Single , unique cell that can contain a number"},            1},
    /*  2 */ {{" MEDIO - Naked Single , Unico numero possibile per la cella",
               "MEDIUM - Naked Single , unique number possible for the cell"},             2},
    /*  3 */ {{" AVANZATO-Intersezioni settori-righe-colonne ",
               "ADVANCED-Intersections blocks-rows-columns"},                              4},
    /*  4 */ {{" AVANZATO - coppia nuda",
               "ADVANCED - naked pair"},                                                   6},
    /*  5 */ {{" DIFFICILE - coppia nascosta",
               "HARD - hidden pair"},                                                      9},
    /*  6 */ {{" DIFFICILE - tripla nuda / nascosta",
               "HARD - hidden / naked triple"},                                           30},
    /*  7 */ {{" MOLTO DIFFICILE - quadrupla nuda / nascosta",
               "VERY HARD - hidden / naked quad"},                                        40},
    /*  8 */ {{"VERY HARD - XY Wing", "VERY HARD - XY Wing"},                             60},
    /*  9 */ {{"VERY HARD - XYZ Wing", "VERY HARD - XYZ Wing"},                           90},
    /* 10 */ {{"VERY HARD - X Wing", "VERY HARD - X Wing"},                               50},
    /* 11 */ {{"VERY HARD - Sfordfish", "VERY HARD - Sfordfish"},                        100},
    /* 12 */ {{"VERY HARD - Jellyfish", "VERY HARD - Jellyfish"},                        200},
    /* 13 */ {{"EXTREME - SIMPLE COLORS ", "EXTREME - SIMPLE COLORS "},                  300},
    /* 14 */ {{"EXTREME - SIMPLE COLORS Contradiction",
               "EXTREME - SIMPLE COLORS Contradiction"},                                 300},
    /* 15 */ {{"EXTREME - X-COLORS", "EXTREME - X-COLORS"},                              400},
    /* 16 */ {{"EXTREME - X-COLORS Contradiction", "EXTREME - X-COLORS Contradiction"},  400},
    /* 17 */ {{"EXTREME - UNIQUE RECTANGLE", "EXTREME - UNIQUE RECTANGLE"},              400},
    /* 18 */ {{"EXTREME - BUGS", "EXTREME - BUGS"},                                      400},
    /* 19 */ {{"EXTREME - XY-CHAINS", "EXTREME - XY-CHAINS"},                            500},
    /* 20 */ {{"EXTREME - LOOPS", "EXTREME - LOOPS"},                                   1000},
    /* 21 */ {{"EXTREME - FORCING CHAIN", "EXTREME - FORCING CHAIN"},                    500},
}};
// clang-format on

constexpr std::string_view total = " tot. {points}";

/// "12x1 - 3x2 - 1x20 ": cutting two characters off the last separator leaves its blank.
std::string detailtext() {
  std::string text;
  for (int level = 21; level >= 1; --level)
    if (levelcount(level) != 0) text += fmt::format("{}x{} - ", level, int(levelcount(level)));
  if (!text.empty()) text.resize(text.size() - 2);
  return text;
}

/// The record on show may be another than the puzzle on the board: the browser stays usable, and a puzzle can
/// be changed and saved.
bool recordisboard() {
  const std::string& stringa = frmmain::txtstringa.text;
  for (std::size_t cell = 0; cell < cells; ++cell) {
    const std::string& digit = givens(static_cast<int>(cell));
    if (cell >= stringa.size() || stringa[cell] != (digit.empty() ? '.' : digit.front())) return false;
  }
  return true;
}

}  // namespace

void messaggiolivello() {
  nishioflag = false;
  dettaglio = detailtext();
  for (int level = 1; level <= 21; ++level) frmmain::liv(level).text = std::to_string(levelcount(level));

  Int16 sum{"difficolta"}, product{"difficolta"};
  for (int level = 1; level <= 21; ++level) {
    product = levels[static_cast<std::size_t>(level)].weight * levelcount(level);
    sum += product;
  }
  difficolta = sum;

  frmmain::testototale.text = fmt::format(total, fmt::arg("points", int(difficolta)));
  frmmain::txtlivello1.text = dettaglio;
  frmmain::txtlivello.text = inlanguage(levels.at(static_cast<std::size_t>(runninglevel)).name);

  if (libraryrecordopen && recordisboard()) {
    Data1.edit();
    frmmain::testolivello.text = std::to_string(runninglevel);
    frmmain::txttotale.text = std::to_string(difficolta);
    frmmain::txtdettaglio.text = dettaglio;
    Data1.update();
  }
}

}  // namespace gradino
