#include "host.h"

#include "grid.h"
#include "words.h"

namespace gradino {

void runevent(const std::function<void()>& event) {
  try {
    event();
  } catch (const Fault& fault) {
    suppresschange = false;
    host.message(faulttext(fault));
  }
}

}  // namespace gradino
