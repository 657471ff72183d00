// Boards on which given digits clash. A house with a digit twice is full before it has all nine, so "each
// digit once in each house" does not hold there; that each empty cell differs from all that it sees still
// does. By counting it is found which houses must take which digits all the same.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>

#include "completions.h"
#include "deduction.h"

namespace gradino {

/// `more`: there is more to deduce than before. `dead`: the board can't be completed.
enum class Tightened { same, more, dead };

/// A number from 0 to 15 for each house: one word for each bit of the numbers, in each word a bit a house.
using HouseNumbers = std::array<std::uint32_t, 4>;

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

  /// Narrows the board by the rules, and the rules by what the board can still take. The board has been
  /// settled.
  Tightened tighten(Boards& boards);

  struct Need {
    int house;          ///< 0 to 26: rows, columns, blocks
    std::size_t digit;  ///< 0 for the digit 1
  };
  /// A digit that a house may take or leave out, in a house with the fewest such digits; none if all is
  /// decided.
  std::optional<Need> openneed() const;
  /// Decides it: the house takes the digit.
  void insist(Need need);
  /// Or leaves it out.
  void leaveout(Boards& boards, Need need) const;

 private:
  /// What must_ says of the houses, at their triads in the slots of packs, as the deduction asks for it.
  template <class T>
  struct Needs {
    std::array<Bands, 3> line{}, block{};
  };
  template <class T>
  const Needs<T>& needs() const;
  template <class T>
  void spreadneeds(Needs<T>& needs, int line) const;
  void spreadneeds();

  bool settlehouses();
  bool settledigit(std::size_t digit);
  bool settlelast(std::size_t digit);
  bool balance(std::size_t digit, std::initializer_list<std::uint32_t> covers);

  Bands empty_{};
  Boards start_;
  HouseNumbers holes_{};  ///< how many empty cells
  Needs<Lying> lying_;
  Needs<Standing> standing_;
  std::uint32_t lasthouses_ = 0;      ///< those of r9c9, a bit each
  std::array<bool, 9> lastdigits_{};  ///< what r9c9 takes at the start, if it is empty
  Bands seenbylast_{};                ///< the empty cells that it sees

  // By digit less one, a bit a house: it can still take the digit; it must. At first nothing is known.
  std::array<std::uint32_t, 9> can_, must_{};
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
