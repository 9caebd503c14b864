// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <random>

namespace orb {

/// Random numbers of mean 0 and standard deviation 1, the same on every machine for the same seed.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : engine_(seed) {}

    /// Never beyond 6: the sum of twelve uniform numbers, since the standard library's normal distribution differs
    /// between systems.
    double next();

private:
    std::mt19937_64 engine_;
};

} // namespace orb
