// An array whose index is an int, as cells, digits and houses are. Unchecked: for what a routine keeps while
// it searches. What the program keeps is in a Table (checked.h).
#pragma once

#include <array>
#include <cstddef>

namespace gradino {

template <class T, int N>
struct ByIndex : std::array<T, static_cast<std::size_t>(N)> {
  constexpr T& operator[](int index) {
    return std::array<T, static_cast<std::size_t>(N)>::operator[](static_cast<std::size_t>(index));
  }
  constexpr const T& operator[](int index) const {
    return std::array<T, static_cast<std::size_t>(N)>::operator[](static_cast<std::size_t>(index));
  }
};

}  // namespace gradino
