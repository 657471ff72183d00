// The two ladders: which technique is tried after which. The first rung that finds something is the step.
#pragma once

#include <array>

#include "technique.h"

namespace gradino {

using Ladder = std::array<const Technique*, 23>;

/// The ladder of the hint.
extern const Ladder hintladder;

/// The ladder of the grader. It has BUG and unique rectangle right after the triples, so that a puzzle can be
/// graded through another path than the one that its user steps through.
extern const Ladder gradeladder;

/// Drops the steps on show of all techniques, as in a program just started.
void forgetsteps();

}  // namespace gradino
