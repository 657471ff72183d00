// Loops, level 20.
#pragma once

namespace gradino {

namespace frmmain {
void steplinks();
}
namespace frmgenerazione {
void gradelinks();
}
void explainlinks();

}  // namespace gradino
