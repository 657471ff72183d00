// XY-chains, level 19.
#pragma once

namespace gradino {

namespace frmmain {
void stepxychain();
}
namespace frmgenerazione {
void gradexychain();
}
void explainxychain();

}  // namespace gradino
