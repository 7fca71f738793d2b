#pragma once

#include "hires/block.h"

#include <array>
#include <cstdint>

/// Draws random numbers of 64 bits with a period of 2^256 - 1: xoshiro256++ (D. Blackman, S. Vigna,
/// "Scrambled linear pseudorandom number generators", 2021), filled from its seed by SplitMix64.
class HiresRandom {
public:
    explicit HiresRandom(std::uint64_t seed);
    std::uint64_t Draw();

private:
    std::array<std::uint64_t, 4> state;
};

/// White noise, evenly spread over its amplitude. `amplitude` is 0..1, 1 being full scale.
class HiresWhiteNoise {
public:
    HiresWhiteNoise(double amplitude, std::uint64_t seed);

    /// Adds the next block.
    void Add(HiresSums& sums);

private:
    std::int64_t gain;
    HiresRandom random;
};
