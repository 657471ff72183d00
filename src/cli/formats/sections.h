// Puzzle files of sections: [Puzzle], and others of what a player did.
#pragma once

#include <vector>

#include "puzzles.h"
#include "textlines.h"

namespace gradino::formats {

/// True when one of the lines is a section's head.
bool hassections(const std::vector<TextLine>& lines);

/// The puzzles of all [Puzzle] sections; other sections are left behind, and one that isn't [State] is told.
/// Above a section's cells may stand header lines of either form: a letter behind #, as in "#AName of the
/// author", or "Author: name" and "Author=name".
std::vector<Puzzle> readsections(const std::vector<TextLine>& lines, const Listener& listener);

}  // namespace gradino::formats
