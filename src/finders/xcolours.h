// X-colours (levels 15 and 16).
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepxcolors();  ///< leaves steptag alone: it is tried right after stepcolors, and has the same tag
}
namespace frmgenerazione {
void gradexcolors();
}

namespace techniques {
extern const Technique xcolours;
}

}  // namespace gradino
