#pragma once

#include "hires/block.h"
#include "hires/random.h"

/// White noise, evenly spread over its amplitude.
class HiresWhiteNoise {
public:
    /// `amplitude` is 0..1, 1 being full scale.
    HiresWhiteNoise(double amplitude, std::uint64_t seed);

    /// Adds the next block.
    void Add(HiresSums& sums);

private:
    std::int64_t gain;
    HiresRandom random;
};
