#include "houses.h"

#include <fmt/format.h>

#include "grid.h"

namespace gradino {

std::string cellname(int cell) {
  return fmt::format("r{}c{}", cellrow(cell), cellcol(cell));
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
