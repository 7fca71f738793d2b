#pragma once

#include <cstdint>
#include <vector>

/// A stretch of one channel's output of the rate converter: a polyphase filter of 63 taps over 16-bit
/// samples.
struct LPolyphaseRun {
    static constexpr int RowLength = 64;
    /// What the magnitudes of half a row may add up to, so that 32 bits hold its sum of products.
    static constexpr int MaxHalfRow = 65535;

    /// A row of 64 coefficients per sub-phase: taps 0..30 and a zero; a zero, taps 33..62 and a zero.
    const std::int16_t* rows;
    /// Per sub-phase, taps 31 and 32, the two that can be too large for a row.
    const int* middle;
    int phases;    ///< N, the number of rows
    int stepWhole; ///< M / N, the input frames that every output frame moves on
    int stepPart;  ///< M mod N, and the sub-phases
    int rounding;  ///< added before the last shift
    int shift;
};

/// The inner loops of this folder that are worth building for several instruction sets. Every build gives the
/// same bits. All work on plain arrays, without allocation.
struct LKernels {
    const char* instructionSet;

    /// The largest magnitude among `count` samples.
    int (*getPeak)(const int* samples, int count);

    /// Multiplies each of `frames` frames by a gain that starts at `gain` (8.24) and grows by `step` from
    /// frame to frame; the product is `SplitProduct`.
    void (*applyGainLine)(int* out, const int* in, int frames, int channels, int gain, int step);

    /// Writes `frames` output samples to out[0], out[stride], ... The first uses row `phase` over
    /// negated[0..62], the samples with their signs turned; negated[63] past the last span must be readable.
    void (*convolve)(const LPolyphaseRun& run, int phase, const std::int16_t* negated, int* out, int stride,
                     int frames);
};

/// The fastest set that this processor runs; chosen once.
const LKernels& Kernels();

/// All sets that this processor runs, slowest first, so that they can be held against each other.
std::vector<const LKernels*> GetUsableKernels();
