// Tables that know their bounds and counters that know their width.
//
// The board lives in plain tables that every routine reads and writes. What keeps that safe is here: leaving
// a table's bounds, or the 8 or 16 bits of a counter, throws a Fault that says what happened and where. A
// Fault ends the routine that ran, never the program: the guard around each event (runevent) reports it.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace gradino {

/// What ended a routine. faulttext (world/faults.h) puts it into words for the user.
struct Fault {
  enum class Kind {
    bounds,    ///< `value` is no index of the table `name`, whose bounds are low to high
    overflow,  ///< the counter `name` can't hold `value`; it holds low to high
    file,      ///< the file `name` couldn't be read or written
  };
  Kind kind;
  std::string name;
  long long value = 0;
  long long low = 0, high = 0;
  std::string place;  ///< the routine it happened in

  // Added by the routines that it passes on its way, where they know it.
  std::optional<int> cell = {};  ///< whose box brought it about
  bool ungraded = false;         ///< it ended a grading
  std::string written = {};      ///< the file that was written before
};

/// A number together with the routine that it comes from: lets a fault in an operator name its place.
struct Located {
  long long value;
  const char* place;
  template <class V>
  requires(std::convertible_to<V, long long> &&
           !std::same_as<V, Located>) constexpr Located(const V& v, const char* at = __builtin_FUNCTION())
      : value(v), place(at) {}  // NOLINT
};

/// An integer of fixed width whose assignment is checked. Name it unless it is in a Table, which names its
/// own.
template <class T>
class Small {
 public:
  constexpr Small() = default;
  constexpr explicit Small(const char* name) : name_(name) {}
  constexpr Small(const Small&) = default;

  constexpr operator int() const { return value_; }

  constexpr Small& operator=(const Small& other) {
    value_ = other.value_;
    return *this;
  }
  constexpr Small& operator=(Located s) {
    if (s.value < std::numeric_limits<T>::min() || s.value > std::numeric_limits<T>::max()) refuse(s);
    value_ = static_cast<T>(s.value);
    return *this;
  }
  constexpr Small& operator+=(Located s) { return *this = Located(value_ + s.value, s.place); }
  constexpr Small& operator-=(Located s) { return *this = Located(value_ - s.value, s.place); }

 private:
  [[noreturn]] void refuse(Located s) const {
    throw Fault{Fault::Kind::overflow,         name_,  s.value, std::numeric_limits<T>::min(),
                std::numeric_limits<T>::max(), s.place};
  }

  T value_ = 0;
  const char* name_ = "";
};

using Byte = Small<std::uint8_t>;
using Int16 = Small<std::int16_t>;

/// Slots LO to HI, both included. `candmask(cell)` is a reference to the slot, or a Fault.
template <class T, int LO, int HI>
class Table {
 public:
  static constexpr int low = LO, high = HI;

  constexpr explicit Table(const char* name) : name_(name) {
    if constexpr (std::is_constructible_v<T, const char*> && !std::is_same_v<T, std::string> &&
                  !std::is_arithmetic_v<T>)
      namedslots(name, std::make_integer_sequence<int, HI - LO + 1>{});
  }

  constexpr T& operator()(Located index) { return slots_[place(index)]; }
  constexpr const T& operator()(Located index) const { return slots_[place(index)]; }

  constexpr auto begin() { return slots_.begin(); }
  constexpr auto end() { return slots_.end(); }
  constexpr auto begin() const { return slots_.begin(); }
  constexpr auto end() const { return slots_.end(); }

  /// Every slot as it is before first use. Texts keep their room.
  constexpr void clear() {
    for (T& slot : slots_)
      if constexpr (requires { slot.clear(); })
        slot.clear();
      else
        slot = T{};
  }

 private:
  template <int... I>
  constexpr void namedslots(const char* name, std::integer_sequence<int, I...>) {
    ((std::construct_at(&slots_[I], name)), ...);
  }
  constexpr std::size_t place(Located index) const {
    if (index.value < LO || index.value > HI) refuse(index);
    return static_cast<std::size_t>(index.value - LO);
  }
  [[noreturn]] void refuse(Located index) const {
    throw Fault{Fault::Kind::bounds, name_, index.value, LO, HI, index.place};
  }

  std::array<T, HI - LO + 1> slots_{};
  const char* name_;
};

/// Slots [0 to HI1, 0 to HI2].
template <class T, int HI1, int HI2>
class Grid {
 public:
  constexpr explicit Grid(const char* name) : name_(name) {}

  constexpr T& operator()(Located i, Located j) { return slots_[place(i, j)]; }
  constexpr const T& operator()(Located i, Located j) const { return slots_[place(i, j)]; }

  /// The slots [i, 0 to HI2], for a walk through all of them.
  constexpr T* row(Located i) { return &slots_[place(i, 0)]; }

  constexpr void clear() {
    for (T& slot : slots_) slot = T{};
  }

 private:
  constexpr std::size_t place(Located i, Located j) const {
    if (i.value < 0 || i.value > HI1) throw Fault{Fault::Kind::bounds, name_, i.value, 0, HI1, i.place};
    if (j.value < 0 || j.value > HI2) throw Fault{Fault::Kind::bounds, name_, j.value, 0, HI2, j.place};
    return static_cast<std::size_t>(i.value * (HI2 + 1) + j.value);
  }

  std::array<T, (HI1 + 1) * (HI2 + 1)> slots_{};
  const char* name_;
};

}  // namespace gradino
