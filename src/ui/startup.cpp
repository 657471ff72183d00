#include "startup.h"

#include "boxes.h"
#include "browser.h"
#include "captions.h"
#include "clock.h"
#include "counter.h"
#include "editing.h"
#include "freshstate.h"
#include "generator.h"
#include "grader.h"
#include "ladders.h"
#include "librarycursor.h"
#include "replay.h"
#include "singles.h"
#include "tables.h"
#include "words.h"

namespace gradino {

void startprogram() {
  freshboard();
  freshstate();
  forgetsteps();
  stepdigit = stepcell = 0;
  boardfinished = false;
  logline = 0;
  freshcounter();
  freshgenerator();
  cellacliccata = navcell = 0;
  freshclock();
  freshbrowser();

  if (apppath.empty())
    closelibrary();
  else
    openlibrary(libraryplace(apppath));
  buildtables();
  lingua = italian;  // the switch toggles: every run starts in English
  cmdlan_Click();
}

}  // namespace gradino
