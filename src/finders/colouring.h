// Colours: simple colours (levels 13 and 14) and x-colours (15 and 16).
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepcolors();
void stepxcolors();  ///< leaves steptag alone: it is tried right after stepcolors, and shares its tag
}  // namespace frmmain

namespace frmgenerazione {
void gradecolors();
void gradexcolors();
}  // namespace frmgenerazione

/// The step of either that is on show.
void explaincolors();

namespace techniques {
extern const Technique simplecolours, xcolours;
}

}  // namespace gradino
