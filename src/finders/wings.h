// XY-Wing (level 8) and XYZ-Wing (level 9).
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void findxywing();
void findxyzwing();
}  // namespace frmmain

namespace frmgenerazione {
void findxywing();
void findxyzwing();
}  // namespace frmgenerazione

void explainxywing();
void explainxyzwing();

namespace techniques {
extern const Technique xywing, xyzwing;
}

}  // namespace gradino
