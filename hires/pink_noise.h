#pragma once

#include "hires/block.h"
#include "hires/random.h"

/// Pink noise, white noise that is filtered: -3 dB an octave from 10 Hz to 0.98 of half the rate, within 0.1
/// dB.
class HiresPinkNoise {
public:
    /// `amplitude` is that of white noise as dense as this at 1 kHz, full scale being 1.
    HiresPinkNoise(int rate, double amplitude, std::uint64_t seed);

    /// What it stays below where `amplitude` is 1: 6.5 times its root mean square.
    static double FindPeak(int rate);
    /// Adds the next block.
    void Add(HiresSums& sums);

private:
    static constexpr std::size_t HalfCorrection = 5, History = 2 * HalfCorrection;
    using Pair = double __attribute__((vector_size(2 * sizeof(double))));

    /// Sections gain / (1 - pole z^-1) side by side, in pairs. What is more than the rate needs stays silent.
    struct Sections {
        explicit Sections(int rate);

        static constexpr std::size_t Pairs = 10;
        std::array<Pair, Pairs> poles{}, gains{};
        double direct = 1; ///< the white noise's own part
    };

    void Filter(double* out);

    HiresRandom random;
    const Sections sections;
    double amplitude;
    std::array<Pair, Sections::Pairs> states{};
    std::array<double, History + HiresBlockFrames>
        ladder{}; ///< the last outputs of the sections, and a block
};
