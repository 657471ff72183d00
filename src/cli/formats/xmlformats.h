// Puzzles in XML.
#pragma once

#include <string_view>
#include <vector>

#include "puzzles.h"

namespace gradino::formats {

/// By the root element: <opensudoku> without a version or with version 1 (the data of each <game> is 81
/// digits) or 2 (games in folders, with data of digits or, after "version: n", of cells
/// "value|note|editable|"), or <ksudoku>.
std::vector<Puzzle> readxml(std::string_view text, const Listener& listener);

}  // namespace gradino::formats
