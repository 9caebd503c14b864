// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace orb {

/// A stream of random numbers that is the same on every machine for the same seed.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : state_(seed) {}

    /// All 64 bits evenly spread.
    std::uint64_t bits();
    /// From 0 up to but not including 1.
    double uniform();
    /// Mean 0, standard deviation 1, never beyond 6: the sum of twelve even numbers, which needs no function that
    /// rounds differently from one machine to the next.
    double normal();

private:
    std::uint64_t state_;
};

} // namespace orb
