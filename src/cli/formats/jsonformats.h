// Puzzles in JSON.
#pragma once

#include <string_view>
#include <vector>

#include "puzzles.h"

namespace gradino::formats {

/// A game as GNOME Sudoku saves it: {"cells": [{"position": [row, column], "value": 5, "fixed": true}, ...]},
/// rows and columns from 0. The givens are the fixed cells.
std::vector<Puzzle> readjson(std::string_view text);

}  // namespace gradino::formats
