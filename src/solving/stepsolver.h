// The step solver: the hint. One call is one step, found by the simplest technique that works.
#pragma once

namespace gradino {

/// Walks the ladder from the singles up; the first finder that finds something shows its step, waits at the
/// light and, on go, carries it out. Nothing found: silence, and txthint keeps its text.
void stepsolver();

/// False, with a message, when no puzzle is loaded: filetxt is empty.
bool checkloaded();

/// The position hint: checkloaded, then the step solver.
void mnuposition_Click();

}  // namespace gradino
