// XY-chains, level 19.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepxychain();
}
namespace frmgenerazione {
void gradexychain();
}
void explainxychain();

namespace techniques {
extern const Technique xychain;
}

}  // namespace gradino
