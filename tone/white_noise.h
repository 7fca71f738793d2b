#pragma once

#include "tone/noise_source.h"

/// White noise: the table of random values, -262143..262143, then, so that it does not repeat, segments of it
/// that start at random, run to its end and are XORed with a random value.
class SSWhiteNoise : public NoiseSource<int> {
public:
    /// 0 ms means endless.
    explicit SSWhiteNoise(std::uint32_t durationMs);

private:
    int DrawEntry(LRandom& random) override;
    Segment DrawSegment() override;
    void Play(const int* entries, int* out, int count) override;
    void Restart() override { mask = 0; }

    int mask = 0; ///< XORed into the samples of this segment
};
