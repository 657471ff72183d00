#include "boardgrade.h"

#include "boxes.h"
#include "grader.h"
#include "grid.h"
#include "light.h"
#include "tables.h"
#include "view.h"

namespace gradino {

void gradeandrestore(const std::function<void()>& grade, const std::function<void()>& restore) {
  try {
    grade();
  } catch (const BoardLost&) {
    throw;
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

void gradeloaded(const std::function<void()>& restore) {
  try {
    gradeandrestore(SolveSudoku, restore);
  } catch (const BoardLost&) {
    frmmain::bkglabel.visible = false;
    throw;
  }
  frmmain::bkglabel.visible = false;
}

void settleboard() {
  loadgivens();
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
  rebuildpositions();
}

void repaintboard() {
  loadgivens();
  rebuildwhole();
}

void plainempty() {
  for (Box& box : frmmain::Text1)
    if (box.text.empty()) box.fore = textcolor;
}

void showboard() {
  repaintboard();
  plainempty();
  frmmain::bkglabel.visible = false;
}

void gradeboard() {
  settleboard();
  mnupencil_Click();
  gradeloaded([] {
    repaintboard();
    plainempty();
  });
}

}  // namespace gradino
