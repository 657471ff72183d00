#pragma once

#include "checked.h"

namespace gradino {

/// Steps of the best forcing chain, or placings of the best Nishio trial: whichever search ran last.
inline constinit Byte chainsteps{"chainsteps"};

}  // namespace gradino
