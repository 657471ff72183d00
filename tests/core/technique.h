// What the tests of all techniques share: leave, take and only set candidates on a board, hintof and logged
// return what a step or a twin found there. What a technique says and does on a board is tested by cases,
// which are read and not programmed: tests/cases.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "player.h"

namespace gradino::tests {

// ---- boards -----------------------------------------------------------------------------------------------

using Marks = std::vector<std::pair<int, std::string>>;  ///< cells and digits of each

/// The same digits in each of the cells.
Marks each(const std::vector<int>& cells, const std::string& digits);

// As earlier steps would have eliminated them, with all tables and boxes brought up to date.
void leave(int cell, const std::string& digits);                     ///< the cell keeps these candidates
void leave(const Marks& marks);                                      ///< each cell keeps its candidates
void take(const std::string& digits, const std::vector<int>& from);  ///< the cells lose those they have
void take(const Marks& marks);                                       ///< each cell loses its digits
void only(const Marks& marks);                                       ///< these cells alone have candidates
void places(int digit, const std::vector<int>& where);               ///< the digit is possible nowhere else

// Cells of a house, 1-based as they are read to the user, but for some.
std::vector<int> row(int number, const std::vector<int>& but = {});
std::vector<int> column(int number, const std::vector<int>& but = {});
std::vector<int> block(int number, const std::vector<int>& but = {});

// ---- what is to be seen and read --------------------------------------------------------------------------

/// All boxes are white.
void expectnopaint();
/// What is to be seen in the cells, candstr of the board that it belongs to.
void expectmarks(const Board& board);

/// Runs a step and answers its first wait: the hint that stood there, or nothing if it found nothing.
std::string hintof(Player& player, void (*step)(), const Act& answer = go);

/// What a twin logs on the present board.
std::string logged(void (*twin)());

}  // namespace gradino::tests
