// Boards on which given digits clash. A house with a doubled digit is full before it has all digits, so "each
// digit once in each house" is wrong there; that each empty cell differs from all it sees still holds. Which
// houses must take which digits all the same is found by counting.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "completions.h"
#include "deduction.h"

namespace gradino {

/// The rules of one such board, see CleanRules. Its boards hold the empty cells alone.
class ClashRules {
 public:
  explicit ClashRules(const Digits& board);

  /// The boards to begin with: each empty cell with the digits that it doesn't see.
  const Boards& start() const { return start_; }

  Bands cells() const { return empty_; }
  template <class T>
  Bands line(std::size_t pack) const {
    return needs<T>().line[pack];
  }
  template <class T>
  Bands block(std::size_t pack) const {
    return needs<T>().block[pack];
  }
  template <class T>
  Bands whole() const {
    return empty_ & empty_ >> T::step & empty_ >> 2 * T::step & eachband(T::places);
  }
  bool refuse(const Boards& boards) const;
  Bands first() const;
  Tightened tighten(Boards& boards);

 private:
  /// In the slots of triads, as the deduction wants them.
  template <class T>
  struct Needs {
    std::array<Bands, 3> line{}, block{};
  };
  template <class T>
  const Needs<T>& needs() const;
  template <class T>
  void tellneeds(Needs<T>& needs, int line) const;

  bool settlehouses();
  bool settledigit(std::size_t digit);
  bool settlelast(std::size_t digit);
  bool balance(std::size_t digit, std::initializer_list<std::uint32_t> covers);

  Bands empty_{};
  Boards start_;
  std::array<int, 27> holes_{};  ///< the empty cells of each house: rows, columns, blocks
  Needs<Lying> lying_;
  Needs<Standing> standing_;
  std::uint32_t lasthouses_ = 0;      ///< those of r9c9, a bit each
  std::array<bool, 9> lastdigits_{};  ///< what r9c9 takes at the start, if it is empty
  Bands seenbylast_{};                ///< the empty cells that it sees

  // By digit less one, a bit a house: it can still take the digit; it must.
  std::array<std::uint32_t, 9> can_{}, must_{};
};

template <>
inline const ClashRules::Needs<Lying>& ClashRules::needs<Lying>() const {
  return lying_;
}
template <>
inline const ClashRules::Needs<Standing>& ClashRules::needs<Standing>() const {
  return standing_;
}

}  // namespace gradino
