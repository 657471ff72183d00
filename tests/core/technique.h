// What the tests of all techniques share.
//
// An Example is one board on which a technique is the next step, and all that is to be seen, read and done
// there in both languages. Told once, it is put through every test of EachExample:
//
//   const Example xwingrows = {.name = "XWingRows", .tag = "findxwing", .level = 10,
//                              .step = frmmain::findxwing, .twin = frmgenerazione::findxwing, ...};
//   EXAMPLES(Fish, &xwingrows, &xwingcolumns);      // at the end of the test file
//
// What is not like the others has tests of its own, made of the pieces below: leave, take and only draw
// candidates on a board, hintof and logged tell what a step or a twin found there, expecttwin and
// expecttwininajob hold all that is true of every twin, expectnopaint and expectmarks look at the boxes.
#pragma once

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "player.h"

namespace gradino::tests {

// ---- boards -----------------------------------------------------------------------------------------------

using Marks = std::vector<std::pair<int, std::string>>;  ///< cells and digits of each

/// The same digits in each of the cells.
Marks each(const std::vector<int>& cells, const std::string& digits);

// Like eliminations by earlier steps, with all that belongs to a board drawn anew.
void leave(int cell, const std::string& digits);                     ///< the cell keeps these candidates
void leave(const Marks& marks);                                      ///< each cell keeps its candidates
void take(const std::string& digits, const std::vector<int>& from);  ///< the cells lose those they have
void take(const Marks& marks);                                       ///< each cell loses its digits
void only(const Marks& marks);                                       ///< these cells alone have candidates
void places(int digit, const std::vector<int>& where);               ///< nowhere else the digit is possible
void putmasks(const std::vector<int>& masks);                        ///< as an earlier board had them

// Cells of a house, 1-based as they are read to the user, but for some.
std::vector<int> row(int number, const std::vector<int>& but = {});
std::vector<int> column(int number, const std::vector<int>& but = {});
std::vector<int> block(int number, const std::vector<int>& but = {});

// ---- what is to be seen and read --------------------------------------------------------------------------

/// Pencil marks in a colour, and marks in others besides.
Paint painted(const Marks& marks, const std::string& colour, Paint besides = {});
/// Cell boxes in a colour.
Paint boxes(const std::vector<int>& cells, const std::string& colour, Paint besides = {});

/// All boxes are white.
void expectnopaint();
/// What is to be seen in the cells, candstr of the board that it belongs to.
void expectmarks(const Board& board);

/// A text in both languages.
struct Said {
  std::string it, en;
  const std::string& text() const { return lingua == italian ? it : en; }
};
/// What comes behind in the same text.
Said operator+(const Said& said, const Said& more);

/// Runs a step and answers its first wait: the hint that stood there, or nothing if it found nothing.
std::string hintof(Player& player, void (*step)(), const Act& answer = go);

/// What a twin logs of the board as it stands.
std::string logged(void (*twin)());

/// Runs a twin. It logs these lines, the first of them a headline with a snapshot, counts each, counts one
/// step of its level, leaves the board as told and touches no box.
void expecttwin(void (*twin)(), int level, const std::vector<std::string>& lines, const Board& after);
/// The same during a long job: the headline is written but neither counted nor kept with a snapshot.
void expecttwininajob(void (*twin)(), int level, const std::vector<std::string>& lines);

// ---- examples ---------------------------------------------------------------------------------------------

/// What stands at one wait of an explanation.
struct Wait {
  Said adds;             ///< to the text of the window
  Paint Text2 = {};      ///< all that is painted
  Paint candidate = {};  ///< likewise
  Paint left = {};       ///< pencil marks that are still painted behind a stop here
};

struct Example {
  std::string name, tag;
  int level = 0;
  void (*step)() = nullptr;
  void (*twin)() = nullptr;
  Marks held;   ///< what these cells of an empty board hold; all others hold all
  Marks taken;  ///< what the step takes away

  std::string number = {};  ///< what Text5 shows at the wait of the step
  Said hint;                ///< what is read there
  Paint Text2 = {};         ///< and painted
  Paint candidate = {};
  bool narrowed = false;       ///< the masks, and they alone, are already as behind the step
  Said done;                   ///< what is read behind it
  bool foundbystop = true;     ///< foundflag behind a stop
  std::vector<Said> log = {};  ///< the lines of the twin
  std::vector<Wait> lesson = {};
  Said closing = {};  ///< what is read when the explanation is over; nothing: the hint is still there
};

class EachExample : public Program, public testing::WithParamInterface<std::tuple<const Example*, int>> {
 protected:
  EachExample();
  static const Example& one() { return *std::get<const Example*>(GetParam()); }

  /// The board at the waits of step and explanation.
  Board waiting() const;
  static Frame shownframe();
  /// At the k-th wait of the explanation, from 0.
  static Frame arguedframe(std::size_t k);
  static std::vector<std::string> loglines();
  /// Runs the step, which explains itself and whose explanation is answered with go until its k-th wait, that
  /// with `last`.
  void explaineduntil(std::size_t k, const Act& last);

  Board before, after;
};

#define EXAMPLES(family, ...)                                                                          \
  INSTANTIATE_TEST_SUITE_P(                                                                            \
      family, EachExample,                                                                             \
      testing::Combine(testing::Values(__VA_ARGS__), testing::Values(english, italian)), [](auto& p) { \
        return std::get<0>(p.param)->name + (std::get<1>(p.param) == english ? "English" : "Italian"); \
      })

}  // namespace gradino::tests
