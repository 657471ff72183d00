// The techniques by level and by the hint's tag, in short.
#pragma once

#include <string_view>

#include "words.h"

namespace gradino::cli {

/// Level 0 to 21.
const Words& levelname(int level);

/// The technique of a step that the hint has just shown under its tag.
const Words& techniquename(std::string_view tag);

}  // namespace gradino::cli
