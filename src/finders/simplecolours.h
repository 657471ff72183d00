// Simple colours (levels 13 and 14).
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepcolors();
}
namespace frmgenerazione {
void gradecolors();
}

namespace techniques {
extern const Technique simplecolours;
}

}  // namespace gradino
