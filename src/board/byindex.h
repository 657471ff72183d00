// An array whose index is an int, as cells, digits and houses are. Unchecked: for what a routine keeps while
// it searches. What the program keeps is in a Table (checked.h).
#pragma once

#include <algorithm>
#include <cstddef>

namespace gradino {

template <class T, int N>
struct ByIndex {
  T items[static_cast<std::size_t>(N)];

  constexpr T& operator[](int index) { return items[index]; }
  constexpr const T& operator[](int index) const { return items[index]; }

  constexpr T* begin() { return items; }
  constexpr T* end() { return items + N; }
  constexpr const T* begin() const { return items; }
  constexpr const T* end() const { return items + N; }
  constexpr T* data() { return items; }
  constexpr const T* data() const { return items; }
  constexpr std::size_t size() const { return N; }
  constexpr void fill(const T& value) { std::fill_n(items, N, value); }

  friend constexpr bool operator==(const ByIndex& one, const ByIndex& other) {
    return std::equal(one.begin(), one.end(), other.begin());
  }
  friend constexpr bool operator<(const ByIndex& one, const ByIndex& other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end());
  }
};

}  // namespace gradino
