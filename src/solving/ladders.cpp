#include "ladders.h"

#include "bug.h"
#include "fish.h"
#include "forcing.h"
#include "intersections.h"
#include "loops.h"
#include "nishio.h"
#include "pairs.h"
#include "rectangles.h"
#include "simplecolours.h"
#include "singles.h"
#include "subsets.h"
#include "wings.h"
#include "xcolours.h"
#include "xychains.h"

namespace gradino {

using namespace techniques;

// clang-format off
const Ladder hintladder = {
    &lastdigit,
    &hiddensingleinblock,
    &hiddensingleinrow,
    &hiddensingleincolumn,
    &nakedsingle,
    &intersections,
    &nakedpair,
    &hiddenpair,
    &triple,
    &quad,
    &xywing,
    &xyzwing,
    &xwing,
    &swordfish,
    &jellyfish,
    &simplecolours,
    &xcolours,
    &uniquerectangle,
    &bug,
    &xychain,
    &loop,
    &forcingchain,
    &nishio,
};

const Ladder gradeladder = {
    &lastdigit,
    &hiddensingleinblock,
    &hiddensingleinrow,
    &hiddensingleincolumn,
    &nakedsingle,
    &intersections,
    &nakedpair,
    &hiddenpair,
    &triple,
    &bug,
    &uniquerectangle,
    &quad,
    &xywing,
    &xyzwing,
    &xwing,
    &swordfish,
    &jellyfish,
    &simplecolours,
    &xcolours,
    &xychain,
    &loop,
    &forcingchain,
    &nishio,
};
// clang-format on

void forgetsteps() {
  for (const Technique* technique : hintladder) technique->forget();
}

}  // namespace gradino
