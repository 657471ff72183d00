// Intersections (locked candidates), level 3.
#pragma once

namespace gradino {

namespace frmmain {
void intersections();
}
namespace frmgenerazione {
void intersections();
}
void explainintersections();

}  // namespace gradino
