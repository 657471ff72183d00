// BUG (bivalue universal grave), level 18.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepbug();
}
namespace frmgenerazione {
void gradebug();
}
void explainbug();

namespace techniques {
extern const Technique bug;
}

}  // namespace gradino
