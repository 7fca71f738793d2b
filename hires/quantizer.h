#pragma once

#include "hires/random.h"

#include <cstdint>

/// Rounds samples to fewer bits, which stay where they are in the 32. What rounds up to full scale, and that
/// alone, is clipped.
class HiresQuantizer {
public:
    /// The dither is triangular and reaches to one step on either side: what rounding leaves has the same
    /// mean and power whatever the signal. The same seed gives the same dither, which no noise of that seed
    /// resembles.
    HiresQuantizer(int bits, bool dithers, std::uint64_t seed);

    void Quantize(const std::int32_t* in, std::int32_t* out, int count);

private:
    int dropped; ///< bits
    bool isDithered;
    HiresRandom random;
};
