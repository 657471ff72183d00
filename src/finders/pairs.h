// Naked and hidden pairs, levels 4 and 5.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void nakedpair();
void hiddenpair();
}  // namespace frmmain
namespace frmgenerazione {
void nakedpair();
void hiddenpair();
}  // namespace frmgenerazione
void explainnakedpair();
void explainhiddenpair();

namespace techniques {
extern const Technique nakedpair, hiddenpair;
}

}  // namespace gradino
