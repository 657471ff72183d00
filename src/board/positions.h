// The short string of positions: where in a house a digit can still go.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <iterator>
#include <string>

namespace gradino {

/// The number of bits in each set of nine: quicker than counting where the processor has no instruction for
/// it.
inline constexpr auto bitcounts = [] {
  std::array<std::uint8_t, 512> counts{};
  for (unsigned bits = 0; bits < 512; ++bits) counts[bits] = static_cast<std::uint8_t>(std::popcount(bits));
  return counts;
}();

/// True for a set of one, without counting either.
constexpr bool issingle(unsigned bits) {
  return bits != 0 && (bits & (bits - 1)) == 0;
}

/// Positions 0 to 8 in ascending order, as in "036": its length and its characters are all that a finder asks
/// for. Held as nine bits, so it is ascending by nature and cheap to compare.
struct Positions {
  std::uint16_t bits = 0;

  constexpr int length() const { return bitcounts[bits]; }
  constexpr bool empty() const { return bits == 0; }
  constexpr bool single() const { return issingle(bits); }
  constexpr bool contains(int position) const { return (bits >> position & 1) != 0; }
  constexpr void add(int position) { bits = static_cast<std::uint16_t>(bits | 1 << position); }

  constexpr void remove(int position) { bits = static_cast<std::uint16_t>(bits & ~(1 << position)); }

  /// First and last position. Of an empty string there is none: ask length() first.
  constexpr int first() const { return std::countr_zero(bits); }
  constexpr int last() const { return 15 - std::countl_zero(bits); }

  /// The k-th position, k from 0 to length() - 1.
  constexpr int operator[](int k) const {
    unsigned rest = bits;
    while (k-- > 0) rest &= rest - 1;
    return std::countr_zero(rest);
  }

  std::string text() const {
    std::string s;
    for (int p : *this) s += static_cast<char>('0' + p);
    return s;
  }

  class iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using difference_type = int;
    using value_type = int;
    using pointer = const int*;
    using reference = int;

    constexpr iterator() = default;
    constexpr explicit iterator(unsigned rest) : rest_(rest) {}
    constexpr int operator*() const { return std::countr_zero(rest_); }
    constexpr iterator& operator++() {
      rest_ &= rest_ - 1;
      return *this;
    }
    constexpr iterator operator++(int) {
      const iterator before = *this;
      ++*this;
      return before;
    }
    constexpr bool operator==(const iterator&) const = default;

   private:
    unsigned rest_ = 0;
  };
  constexpr iterator begin() const { return iterator(bits); }
  constexpr iterator end() const { return iterator(0); }

  constexpr bool operator==(const Positions&) const = default;
};

}  // namespace gradino
