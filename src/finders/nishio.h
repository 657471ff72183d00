// Nishio, level 21: the last rung.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void stepnishio();
}
namespace frmgenerazione {
void gradenishio();
}
void explainnishio();

namespace techniques {
extern const Technique nishio;
}

}  // namespace gradino
