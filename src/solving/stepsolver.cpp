#include "stepsolver.h"

#include "boxes.h"
#include "grid.h"
#include "host.h"
#include "ladders.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words notloaded = {"nessun schema caricato", "no puzzle loaded"};

}  // namespace

void stepsolver() {
  rebuildpositions();
  suppresschange = false;
  for (const Technique* technique : hintladder)
    if (technique->step()) return;
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
