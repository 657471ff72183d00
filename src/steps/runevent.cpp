#include "runevent.h"

#include <stdexcept>

#include "faults.h"
#include "grid.h"
#include "host.h"
#include "light.h"

namespace gradino {

void runevent(const std::function<void()>& event) {
  try {
    event();
  } catch (const BoardLost&) {
    suppresschange = false;
    clearcolours();  // those of the step that has lost its board
  } catch (const Fault& fault) {
    suppresschange = false;
    host.message(faulttext(fault));
  } catch (const std::runtime_error& error) {
    suppresschange = false;
    host.message(error.what());
  }
}

}  // namespace gradino
