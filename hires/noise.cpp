#include "hires/noise.h"

#include "hires/exact_math.h"

#include <cmath>

namespace {

std::uint64_t RotateLeft(std::uint64_t value, int bits) {
    return value << bits | value >> (64 - bits);
}

} // namespace

HiresRandom::HiresRandom(std::uint64_t seed) {
    for (std::uint64_t& each : state) {
        seed += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = (seed ^ seed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        each = mixed ^ mixed >> 31;
    }
}

std::uint64_t HiresRandom::Draw() {
    const std::uint64_t drawn = RotateLeft(state[0] + state[3], 23) + state[0];
    const std::uint64_t shifted = state[1] << 17;
    state[2] ^= state[0];
    state[3] ^= state[1];
    state[1] ^= state[2];
    state[0] ^= state[3];
    state[2] ^= shifted;
    state[3] = RotateLeft(state[3], 45);
    return drawn;
}

HiresWhiteNoise::HiresWhiteNoise(double amplitude, std::uint64_t seed)
    : gain(RoundToBits(std::fmin(amplitude, 1), HiresUnityBits)),
      random(seed) {}

void HiresWhiteNoise::Add(HiresSums& sums) {
    for (std::int64_t& sum : sums)
        sum += (static_cast<std::int64_t>(random.Draw()) >> (63 - HiresUnityBits)) * gain;
}
