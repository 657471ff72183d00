// The techniques by level, in short.
#pragma once

#include "words.h"

namespace gradino::cli {

/// Level 0 to 21.
const Words& levelname(int level);

}  // namespace gradino::cli
