#pragma once

#include "tone/noise_source.h"

/// Pink noise: random segments of a table of random values, about +-18350, through a filter that falls by 3
/// dB an octave.
class SSPinkNoise : public NoiseSource<double> {
public:
    using Pair = double __attribute__((vector_size(2 * sizeof(double))));
    struct FilterState {
        Pair sections[3]; ///< of six one-pole sections
        double delayed;   ///< a sample, one late
    };

    /// 0 ms means endless, and so does a duration whose frames wrap below 0.
    explicit SSPinkNoise(std::uint32_t durationMs);

private:
    double DrawEntry(LRandom& random) override;
    Segment DrawSegment() override;
    void Play(const double* entries, int* out, int count) override;
    void Restart() override { filter = {}; }
    int DrawPlace();

    FilterState filter{};
};
