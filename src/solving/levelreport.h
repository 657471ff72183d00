// The level report: the grader's numbers as the user and the library see them.
#pragma once

#include <array>

namespace gradino {

/// Fills dettaglio and difficolta, the level boxes and text lines, and the library record on show.
/// Fault: a score above 32767, before anything is shown.
void messaggiolivello();

}  // namespace gradino
