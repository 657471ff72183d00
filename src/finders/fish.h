// Fish: X-Wing (level 10), Swordfish (11), Jellyfish (12).
#pragma once

#include "technique.h"

namespace gradino {

namespace frmmain {
void findxwing();
void findswordfish();
void findjellyfish();
}  // namespace frmmain

namespace frmgenerazione {
void findxwing();
void findswordfish();
void findjellyfish();
}  // namespace frmgenerazione

void explainxwing();
void explainswordfish();
void explainjellyfish();

namespace techniques {
extern const Technique xwing, swordfish, jellyfish;
}

}  // namespace gradino
