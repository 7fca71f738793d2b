#pragma once

#include "hires/block.h"

#include <cstdint>

/// A sine of one frequency, block by block: with `a` where a block begins and `b` from there on, it is
/// sin(a + b) = sin a cos b + cos a sin b, and the `b` of all blocks are the same. Rounding alone is added,
/// which stays below -190 dB of full scale.
class HiresSteadySine {
public:
    /// `increment` is what a frame moves on, of which 2^64 are a cycle; `amplitude` is 0..1, 1 being full
    /// scale.
    HiresSteadySine(std::uint64_t increment, double amplitude);

    void Add(HiresSums& sums);

private:
    double amplitude;
    std::uint64_t increment, phase = 0;
    std::array<std::int32_t, HiresBlockFrames> sines, cosines;
};
