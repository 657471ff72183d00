#include "explain.h"

#include "boxes.h"
#include "ladders.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words caption = {"Spiegazioni- Clik sul semaforo verde per procedere",
                           "Explanations - Clik on green traffic lights to proceed"};

}  // namespace

void Picthelp_Click() {
  frmactivity::caption = inlanguage(caption);
  frmactivity::top = frmmain::top;
  frmactivity::left = frmmain::left + frmmain::width;
  frmactivity::placed = false;
  // Simple colours and X-colours share their tag, and their explanation.
  for (const Technique* technique : hintladder)
    if (steptag == technique->tag && technique->explain != nullptr) return technique->explain();
}

}  // namespace gradino
