// Loops, level 20.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void steplinks();
}
namespace frmgenerazione {
void gradelinks();
}
void explainlinks();

namespace techniques {
extern const Technique loop;
}

}  // namespace gradino
