// An array whose index is an int, as cells, digits and houses are. Unchecked: for what a routine keeps while
// it searches. What the program keeps is in a Table (checked.h).
#pragma once

#include <algorithm>
#include <cstddef>

namespace gradino {

template <class T, int N>
struct ByIndex {
  T slots[static_cast<std::size_t>(N)];

  constexpr T& operator[](int index) { return slots[index]; }
  constexpr const T& operator[](int index) const { return slots[index]; }

  constexpr T* begin() { return slots; }
  constexpr T* end() { return slots + N; }
  constexpr const T* begin() const { return slots; }
  constexpr const T* end() const { return slots + N; }
  constexpr T* data() { return slots; }
  constexpr const T* data() const { return slots; }
  static constexpr std::size_t size() { return N; }
  constexpr void fill(const T& value) { std::fill_n(slots, N, value); }

  friend constexpr bool operator==(const ByIndex& one, const ByIndex& other) {
    return std::equal(one.begin(), one.end(), other.begin());
  }
  friend constexpr bool operator<(const ByIndex& one, const ByIndex& other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end());
  }
};

}  // namespace gradino
