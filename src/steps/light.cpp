#include "light.h"

#include "boxes.h"
#include "host.h"
#include "step.h"

namespace gradino {

using namespace frmmain;

namespace {

void showlight(bool visible) {
  Pictgo.visible = Pictalt.visible = Picthelp.visible = visible;
}

}  // namespace

void aspetta() {
  showlight(true);
  do host.waitevents();
  while (lightresult != 1 && lightresult != 2);
  showlight(false);
}

void loseboard() {
  showlight(false);
  if (explaining) frmactivity::visible = explaining = false;
  lightresult = 2;
  boardnumber += 1;
}

void letevents() {
  const int board = boardnumber;
  host.runevents();
  if (board != boardnumber) throw BoardLost{};
}

Answer waitatlight() {
  const int board = boardnumber;
  const bool found = foundflag;
  lightresult = 0;
  aspetta();
  if (board != boardnumber) throw BoardLost{};
  foundflag = found;
  return lightresult == 2 ? Answer::stop : Answer::go;
}

bool waiting() {
  return Pictgo.visible;
}

void Pictgo_Click() {
  lightresult = 1;
}
void Pictalt_Click() {
  lightresult = 2;
}

}  // namespace gradino
