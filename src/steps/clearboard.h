// The empty board that a new puzzle starts from.
#pragma once

namespace gradino {

/// A new puzzle's start state: an empty board with red digit boxes, an empty log, no grade.
void clearboard();

}  // namespace gradino
