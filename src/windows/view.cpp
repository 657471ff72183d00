#include "view.h"

#include "boxes.h"
#include "menu.h"
#include "tables.h"

namespace gradino {

using namespace frmmain;

bool pencilmarks() {
  return mnupencil.ticked;
}

void mnupencil_Click() {
  if (!mnupencil.ticked) {
    for (int cell = 0; cell < cellcount; ++cell)
      if (Text1(cell).text.empty()) Text1(cell).visible = false;
  } else {
    for (Box& box : Text1) box.visible = true;
  }
  mnupencil.ticked = !mnupencil.ticked;
  pencilclicks += 1;
}

void showpencilmarks() {
  if (pencilmarks())
    pencilclicks += 1;
  else
    mnupencil_Click();
}

}  // namespace gradino
