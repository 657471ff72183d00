// Unique rectangles, level 17.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepur();
}
namespace frmgenerazione {
void gradeur();
}
void explainur();

namespace techniques {
extern const Technique uniquerectangle;
}

}  // namespace gradino
