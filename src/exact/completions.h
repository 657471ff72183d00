// The completions of a board in ascending order of their digits, read from r1c1 to r9c9. Knows nothing of
// commands, boxes or tables: that is the counter's part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "houses.h"

namespace gradino {

/// A digit a cell, 0 for empty.
using Digits = ByCell<std::uint8_t>;

/// The first completions of a board in ascending order, at most `limit` of them.
///
/// A completion fills each empty cell with a digit that is nowhere else in the cell's houses. Digits of the
/// board that clash with each other stay and are no reason to refuse it; a house with such digits is full
/// before it has all nine. A completion is left out when r9c9 was empty and could take another digit as well,
/// which happens only on boards with a clash.
void firstcompletions(const Digits& board, std::size_t limit, std::vector<Digits>& found);

/// Whether a board whose digits don't clash has a completion in which that empty cell takes another digit
/// than this one. Faster than counting.
bool completesotherwise(const Digits& board, int cell, int digit);

}  // namespace gradino
