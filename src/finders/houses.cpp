#include "houses.h"

#include <fmt/format.h>

#include "grid.h"
#include "step.h"

namespace gradino {

std::string cellname(int cell) {
  return fmt::format("r{}c{}", cellrow(cell), cellcol(cell));
}

void keephouse(HouseKind kind, int house) {
  (kind == HouseKind::row ? currow : kind == HouseKind::column ? curcol : curblock) = house;
}

void showdeletions() {
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

void settledeletions() {
  rebuildcandstr();
  rebuildpositions();
}

}  // namespace gradino
