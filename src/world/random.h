// Streams of random numbers.
#pragma once

#include <cstdint>
#include <functional>

namespace gradino {

/// The program's own stream, seeded once from the system.
double systemrandom();

/// A stream that is the same for the same seed and number, on every machine.
std::function<double()> seededrandom(std::uint64_t seed, std::uint32_t number = 0);

}  // namespace gradino
