// A technique as the lists of techniques have it: the two ladders, the explanations, menu and toolbar,
// gradino-cli. Each has one record, declared in the header of its finder.
#pragma once

#include <string_view>

#include "step.h"
#include "words.h"

namespace gradino {

struct Technique {
  std::string_view tag;      ///< what steptag holds while its step is the one on show
  std::string_view name;     ///< its key in what gradino-cli writes
  Words called;              ///< what people call it
  bool (*step)();            ///< the step of the main window: shows, waits, acts. True: there was one
  bool (*twin)();            ///< the grader's silent twin: logs, acts, raises the level. True: there was one
  void (*explain)();         ///< argues the step on show; nullptr: there is nothing to argue
  int level;                 ///< what one step raises the grade to
  int clashlevel = level;    ///< the same for a step whose argument ends in a contradiction
  void (*forget)() = [] {};  ///< drops the step on show, as in a program just started
};

/// A routine that leaves in foundflag whether it found something, as a record has it.
template <void (*routine)()>
bool byfoundflag() {
  routine();
  return foundflag;
}

}  // namespace gradino
