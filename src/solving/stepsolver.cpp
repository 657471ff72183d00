#include "stepsolver.h"

#include "boxes.h"
#include "bug.h"
#include "colouring.h"
#include "fish.h"
#include "forcing.h"
#include "grid.h"
#include "host.h"
#include "intersections.h"
#include "loops.h"
#include "nishio.h"
#include "pairs.h"
#include "rectangles.h"
#include "singles.h"
#include "step.h"
#include "subsets.h"
#include "tables.h"
#include "wings.h"
#include "words.h"
#include "xychains.h"

namespace gradino {
namespace {

constexpr Words notloaded = {"nessun schema caricato", "no puzzle loaded"};

struct Rung {
  const char* tag;
  void (*routine)();
};

// Behind the singles. The grader's order is another.
// clang-format off
constexpr Rung rungs[] = {
    {"intersections", frmmain::intersections},
    {"nakedpair",     frmmain::nakedpair},
    {"hiddenpair",    frmmain::hiddenpair},
    {"findtriple",    frmmain::findtriple},
    {"findquad",      frmmain::findquad},
    {"findxywing",    frmmain::findxywing},
    {"findxyzwing",   frmmain::findxyzwing},
    {"findxwing",     frmmain::findxwing},
    {"findswordfish", frmmain::findswordfish},
    {"findjellyfish", frmmain::findjellyfish},
    {"colors",        frmmain::stepcolors},
    {"colors",        frmmain::stepxcolors},
    {"ur",            frmmain::stepur},
    {"bug",           frmmain::stepbug},
    {"xychain",       frmmain::stepxychain},
    {"links",         frmmain::steplinks},
    {"xlinks",        frmmain::stepforcing},
    {"impossible",    frmmain::stepnishio},
};
// clang-format on

}  // namespace

void stepsolver() {
  rebuildpositions();
  suppresschange = false;
  for (const SingleRung& rung : singlerungs) {
    steptag = rung.tag;
    if (frmmain::single(rung)) return;
  }
  for (const Rung& rung : rungs) {
    steptag = rung.tag;
    rung.routine();
    if (foundflag) return;
  }
}

bool checkloaded() {
  if (!frmmain::filetxt.text.empty()) return true;
  host.message(std::string(inlanguage(notloaded)));
  return false;
}

void mnuposition_Click() {
  if (checkloaded()) stepsolver();
}

}  // namespace gradino
