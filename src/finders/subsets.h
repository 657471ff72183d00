// Triples (level 6) and quads (level 7), naked and hidden.
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void findtriple();
void findquad();
}  // namespace frmmain

namespace frmgenerazione {
void findtriple();
void findquad();
}  // namespace frmgenerazione

void explaintriple();
void explainquad();

namespace techniques {
extern const Technique triple, quad;
}

}  // namespace gradino
