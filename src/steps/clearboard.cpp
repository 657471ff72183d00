#include "clearboard.h"

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "tables.h"

namespace gradino {

void clearboard() {
  clearlog();
  numerosoluzioni = 0;
  filledcount = 0;
  nishioflag = false;
  comandocorrente.clear();
  frmmain::txtlivello.text.clear();
  frmmain::txtlivello1.text.clear();
  colorescelto = 0;
  loseboard();
  cleargrade();
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    writetext1(cell, "");
    writetext2(cell, "");
    frmmain::Text1(cell).fore = red;
    frmmain::Text1(cell).locked = false;
    // The tables are emptied with the boxes: a puzzle typed next must not rest on the one before. Only
    // solutiontext stays as the last count left it.
    cellvalue(cell) = 0;
    givens(cell).clear();
  }
  suppresschange = false;
  rebuildwhole();
  showcounts();
}

}  // namespace gradino
