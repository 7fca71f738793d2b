#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// One sub-phase of the rate converter's filter, which has 63 taps. Sums are taken in two halves, taps 0..31
/// and 32..62. Aligned, so that no load reaches into two lines of the cache.
struct alignas(64) LPolyphaseRow {
    static constexpr int Length = 64;
    static constexpr int HalfLength = Length / 2;
    /// What the magnitudes of a half may add up to, so that 32 bits hold its sum of products.
    static constexpr int MaxHalf = 65535;
    /// What the two taps in the middle are counted in for the most part, as 16 bits don't hold them.
    static constexpr int Coarse = 256;

    /// The taps and a zero; of taps 31 and 32 what is left of multiples of `Coarse`.
    std::int16_t taps[Length];
};

/// A stretch of the rate converter's output.
struct LPolyphaseRun {
    const LPolyphaseRow* rows;
    const std::int16_t* middle; ///< for each row, taps 31 and 32 in multiples of `LPolyphaseRow::Coarse`
    int phases;                 ///< N, the number of rows
    int stepWhole;              ///< M / N, the input frames that every output frame moves on
    int stepPart;               ///< M mod N, and the sub-phases
    int shift;                  ///< the last one, 0..31
    int rounding;               ///< added before it: at most 16384, and 0 for a shift of more than 15
};

/// Samples of one or two channels, each channel by itself.
struct LChannelSamples {
    std::int16_t* first;
    std::ptrdiff_t distance; ///< from one channel to the next
    int channels;            ///< 1 or 2
};

/// Six one-pole filters side by side, whose outputs are added up.
struct LOnePoles {
    static constexpr int Count = 6;

    double poles[Count]; ///< what is left of an output for the next one
    double gains[Count]; ///< of the input
    double delayed;      ///< of the input before, in the sum
    double direct;       ///< of the input, in the sum

    struct State {
        double outputs[Count];
        double input; ///< the last one
    };
};

/// Points of a circle, turned on by an angle.
struct LTurn {
    const std::int32_t* sines;
    const std::int32_t* cosines;
    std::int32_t sine, cosine; ///< of the angle
};

/// The inner loops of the sound that are worth building for several instruction sets. Every build gives the
/// same bits. All work on plain arrays, without allocation.
struct LKernels {
    const char* instructionSet;

    /// The largest magnitude among `count` samples.
    int (*getPeak)(const int* samples, int count);

    /// Multiplies each of `frames` frames by a gain that starts at `gain` (8.24) and grows by `step` from
    /// frame to frame; the product is `SplitProduct`.
    void (*applyGainLine)(int* out, const int* in, int frames, int channels, int gain, int step);

    /// Converts samples from and to 16 bits, as `LSF16` does.
    void (*widen)(int* out, const std::int16_t* in, int count);
    void (*narrow)(std::int16_t* out, const int* in, int count);

    /// Shifts frames right by `shift`, rounded, in place, and writes them with their signs turned to
    /// `negated`, channel by channel. False where 16 bits don't hold one of those.
    bool (*pack)(int* samples, int frames, int shift, const LChannelSamples& negated);

    /// Writes `frames` output frames. The first uses row `phase` over frames 0..62, whose samples have their
    /// signs turned; the frame behind the last span must be readable.
    void (*convolve)(const LPolyphaseRun& run, int phase, const LChannelSamples& negated, int* out,
                     int frames);

    /// Writes for each input the sum of the outputs, the input before and the input, added up in this order,
    /// truncated; 32 bits have to hold it.
    void (*filter)(const LOnePoles& filters, LOnePoles::State& state, const double* in, int* out, int count);

    /// Adds the sines of the points once they are turned to `count` sums.
    void (*addTurned)(std::int64_t* sums, const LTurn& turn, int count);

    /// Writes sums of less than 2^62 shifted right by `shift`, 1..31, rounded. False where one exceeds
    /// INT32_MAX, with either sign; it is not written as it should be then.
    bool (*roundSums)(std::int32_t* out, const std::int64_t* sums, int count, int shift);

    /// Writes the upper three bytes of each sample, little-endian.
    void (*pack24)(char* out, const std::int32_t* samples, int count);
};

/// The fastest set that this processor runs; chosen once.
const LKernels& Kernels();

/// All sets that this processor runs, slowest first, so that they can be held against each other.
std::vector<const LKernels*> GetUsableKernels();
