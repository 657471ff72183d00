// Forcing chains, level 21.
#pragma once

namespace gradino {

namespace frmmain {
void stepforcing();
}
namespace frmgenerazione {
void gradeforcing();
}
void explainforcing();

}  // namespace gradino
