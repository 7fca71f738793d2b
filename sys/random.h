#pragma once

#include <cstdint>
#include <random>

/// Draws random integers in 0 .. 2^31-1. The same seed gives the same numbers.
class LRandom {
public:
    explicit LRandom(std::uint32_t seed) : generator(seed) {}

    int Draw() { return static_cast<int>(generator() >> 1); }

private:
    std::mt19937 generator;
};

/// A new seed on every call: the time in nanoseconds, XORed with a number drawn from the seed before.
/// Thread-safe.
std::uint32_t Randomize();

/// From here on `Randomize` counts up from `seed` instead, so that what is random can be repeated.
void FixRandomSeed(std::uint32_t seed);
