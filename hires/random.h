#pragma once

#include <array>
#include <bit>
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

inline std::uint64_t HiresRandom::Draw() {
    const std::uint64_t drawn = std::rotl(state[0] + state[3], 23) + state[0];
    const std::uint64_t shifted = state[1] << 17;
    state[2] ^= state[0];
    state[3] ^= state[1];
    state[1] ^= state[2];
    state[0] ^= state[3];
    state[2] ^= shifted;
    state[3] = std::rotl(state[3], 45);
    return drawn;
}
