#include "random.h"

#include <random>

namespace gradino {
namespace {

/// The upper 53 bits as a fraction: always below 1, which the library's own distribution doesn't guarantee.
double fraction(std::mt19937_64& engine) {
  return static_cast<double>(engine() >> 11) * 0x1p-53;
}

}  // namespace

double systemrandom() {
  static std::mt19937_64 engine = [] {
    std::random_device device;
    std::seed_seq seed{device(), device(), device(), device()};
    return std::mt19937_64(seed);
  }();
  return fraction(engine);
}

std::function<double()> seededrandom(std::uint64_t seed, std::uint32_t number) {
  std::seed_seq parts{static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32), number};
  return [engine = std::mt19937_64(parts)]() mutable { return fraction(engine); };
}

}  // namespace gradino
