// The colours of the board, and no others: red + 256 * green + 65536 * blue.
#pragma once

#include <cstdint>
#include <string_view>

namespace gradino {

using Colour = std::int32_t;

// clang-format off
inline constexpr Colour white     =    16777215;
inline constexpr Colour yellow    =       65535;
inline constexpr Colour red       =         255;
inline constexpr Colour textcolor = -2147483640;  // whichever colour the system uses for plain text
inline constexpr Colour green     =       65280;
inline constexpr Colour cyan      =    16776960;
inline constexpr Colour magenta   =    16711935;
inline constexpr Colour lightblue =    16744576;
inline constexpr Colour orange    =       33023;
// clang-format on

/// The name of one of the colours above; of any other number the empty text.
std::string_view colourname(Colour colour);

}  // namespace gradino
