#include "hires/white_noise.h"

#include "hires/exact_math.h"

#include <cmath>

HiresWhiteNoise::HiresWhiteNoise(double amplitude, std::uint64_t seed)
    : gain(RoundToBits(std::fmin(amplitude, 1), HiresUnityBits)),
      random(seed) {}

void HiresWhiteNoise::Add(HiresSums& sums) {
    HiresRandom drawing = random; // in registers
    for (std::int64_t& sum : sums)
        sum += (static_cast<std::int64_t>(drawing.Draw()) >> (63 - HiresUnityBits)) * gain;
    random = drawing;
}
