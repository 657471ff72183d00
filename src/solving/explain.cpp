#include "explain.h"

#include "boxes.h"
#include "bug.h"
#include "colouring.h"
#include "fish.h"
#include "forcing.h"
#include "intersections.h"
#include "loops.h"
#include "nishio.h"
#include "pairs.h"
#include "rectangles.h"
#include "singles.h"
#include "step.h"
#include "subsets.h"
#include "wings.h"
#include "words.h"
#include "xychains.h"

namespace gradino {
namespace {

constexpr Words caption = {"Spiegazioni- Clik sul semaforo verde per procedere",
                           "Explanations - Clik on green traffic lights to proceed"};

struct Explanation {
  const char* tag;
  void (*explain)();
};

// clang-format off
constexpr Explanation explanations[] = {
    {"findSingleInBlock",  explainsingleinblock},
    {"findSingleInRow",    explainsingleinrow},
    {"findSingleInColumn", explainsingleincolumn},
    {"findSingleInCell",   explainsingleincell},
    {"intersections",      explainintersections},
    {"nakedpair",          explainnakedpair},
    {"hiddenpair",         explainhiddenpair},
    {"findtriple",         explaintriple},
    {"findquad",           explainquad},
    {"findxywing",         explainxywing},
    {"findxyzwing",        explainxyzwing},
    {"findxwing",          explainxwing},
    {"findswordfish",      explainswordfish},
    {"findjellyfish",      explainjellyfish},
    {"colors",             explaincolors},
    {"impossible",         explainnishio},
    {"xychain",            explainxychain},
    {"links",              explainlinks},
    {"xlinks",             explainforcing},
    {"ur",                 explainur},
    {"bug",                explainbug},
};
// clang-format on

}  // namespace

void Picthelp_Click() {
  frmactivity::caption = inlanguage(caption);
  frmactivity::top = frmmain::top;
  frmactivity::left = frmmain::left + frmmain::width;
  frmactivity::placed = false;
  for (const Explanation& row : explanations)
    if (steptag == row.tag) return row.explain();
}

}  // namespace gradino
