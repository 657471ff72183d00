// The completions of a board in ascending order. Says nothing of commands, boxes or tables: the counter does.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace gradino {

/// A digit a cell, 0 for empty.
using Digits = std::array<std::uint8_t, 81>;

/// The first completions of a board in ascending order, at most `limit` of them.
///
/// A completion fills each empty cell with a digit that stands nowhere else in the cell's houses. Digits of
/// the board that clash with each other stay and are not looked at; then a house may lack digits when it is
/// full. A completion is left out when r9c9 was empty and has another digit to take as well, which takes a
/// clash.
void firstcompletions(const Digits& board, std::size_t limit, std::vector<Digits>& found);

/// Whether a board whose digits don't clash has a completion in which that empty cell takes another digit
/// than this one: sooner told than how many completions there are.
bool completesotherwise(const Digits& board, int cell, int digit);

}  // namespace gradino
