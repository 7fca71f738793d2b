#pragma once

#include "sound/kernels/kernels.h"
#include "tone/noise_source.h"

/// Pink noise: random segments of a table of random values, about +-18350, through a filter that falls by 3
/// dB an octave.
class SSPinkNoise : public NoiseSource<double> {
public:
    /// 0 ms means endless, and so does a duration whose frames wrap below 0.
    explicit SSPinkNoise(std::uint32_t durationMs);

private:
    double DrawEntry(LRandom& random) override;
    Segment DrawSegment() override;
    void Play(const double* entries, int* out, int count) override;
    void Restart() override { state = {}; }
    int DrawPlace();

    LOnePoles::State state{};
};
