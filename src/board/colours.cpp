#include "colours.h"

#include <array>
#include <utility>

namespace gradino {

std::string_view colourname(Colour colour) {
  static constexpr std::array<std::pair<Colour, std::string_view>, 9> names{{
      {white, "white"},
      {yellow, "yellow"},
      {red, "red"},
      {textcolor, "textcolor"},
      {green, "green"},
      {cyan, "cyan"},
      {magenta, "magenta"},
      {lightblue, "lightblue"},
      {orange, "orange"},
  }};
  for (const auto& [value, name] : names)
    if (value == colour) return name;
  return {};
}

}  // namespace gradino
