#include "freshstate.h"

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "light.h"
#include "log.h"
#include "step.h"

namespace gradino {

void freshstate() {
  freshboxes();
  suppresschange = modificacandidati = false;
  colorescelto = 0;
  lightresult = 0;
  explaining = false;

  foundflag = false;
  steptag.clear();
  for (Byte* state : {&curdigit, &curcell, &curblock, &currow, &curcol, &colourdigit}) *state = 0;
  nishioflag = false;
  comandocorrente.clear();

  freshlog();

  cleargrade();
  numerosoluzioni = 0;
  dettaglio.clear();
  difficolta = 0;
  libraryrecordopen = false;
  Data1 = {};
  unattended = false;
}

}  // namespace gradino
