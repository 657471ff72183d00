// Unique rectangles, level 17.
#pragma once

namespace gradino {

namespace frmmain {
void stepur();
}
namespace frmgenerazione {
void gradeur();
}
void explainur();

}  // namespace gradino
