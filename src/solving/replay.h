// The log as a table of contents: from a line back to the board just before that step.
#pragma once

#include <cstddef>

#include "checked.h"

namespace gradino {

/// The log line that was chosen last.
inline constinit Int16 logline{"logline"};

/// A double click on the log, with the caret at byte `caret` of the log text. Refuses during a wait and on a
/// detail line, otherwise replays the line.
void Text3_DblClick(std::size_t caret);

/// The Return key there does the same, but on a line without a snapshot it says so and changes nothing: in a
/// log just shown the caret is on the empty first line, which the user has not chosen.
void Text3_Return(std::size_t caret);

/// Restores snapshot `logline`, with all eliminations up to there, and runs the step solver. A line without a
/// snapshot empties the board.
void ritrova();

}  // namespace gradino
