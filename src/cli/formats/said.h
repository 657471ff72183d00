// Sentences with holes, filled in both languages.
#pragma once

#include <fmt/format.h>

#include "puzzles.h"

namespace gradino::formats {

template <class... Args>
Said said(fmt::format_string<const Args&...> it, fmt::format_string<const Args&...> en, const Args&... args) {
  return {fmt::format(it, args...), fmt::format(en, args...)};
}

}  // namespace gradino::formats
