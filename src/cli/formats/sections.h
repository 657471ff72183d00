// Puzzle files with sections: [Puzzle], and others with a player's entries.
#pragma once

#include <vector>

#include "puzzles.h"
#include "textlines.h"

namespace gradino::formats {

/// True when one of the lines is a section head.
bool hassections(const std::vector<TextLine>& lines);

/// The puzzles of all [Puzzle] sections. Other sections are ignored; all but [State] are reported to the
/// listener. The cells of a section may follow header lines of either form: # and a letter, as in "#AName of
/// the author", or "Author: name" and "Author=name".
std::vector<Puzzle> readsections(const std::vector<TextLine>& lines, const Listener& listener);

}  // namespace gradino::formats
