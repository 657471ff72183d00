#include "gradestate.h"

namespace gradino {

void raiselevel(int level) {
  if (runninglevel < level) runninglevel = level;
  levelcount(level) += 1;
}

void cleargrade() {
  runninglevel = 0;
  for (Byte& count : levelcount) count = 0;
}

}  // namespace gradino
