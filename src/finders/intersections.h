// Intersections (locked candidates), level 3.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void intersections();
}
namespace frmgenerazione {
void intersections();
}
void explainintersections();

namespace techniques {
extern const Technique intersections;
}

}  // namespace gradino
