// Forcing chains, level 21.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepforcing();
}
namespace frmgenerazione {
void gradeforcing();
}
void explainforcing();

namespace techniques {
extern const Technique forcingchain;
}

}  // namespace gradino
