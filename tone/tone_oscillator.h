#pragma once

#include "tone/wave_table.h"

#include <cstdint>

/// One component on one channel: a 32-bit phase accumulator (a cycle is 2^32) that reads a wave table,
/// without interpolation, or gives an impulse whenever it wraps.
struct SSTonePole {
    /// What an impulse reads, whatever the gain.
    static constexpr int ImpulseLevel = 185364;

    /// `startHz` and `endHz` may be any number: a negative frequency runs backwards, and an increment is
    /// taken modulo 2^32, 0 where the number is not finite. `amplitudeDb`: see `LDB`.
    void Init(double startHz, double endHz, std::int8_t amplitudeDb, bool impulse, bool logSweep);

    /// Writes the next `frames` samples to out[0], out[stride], ..., or adds them to what stands there.
    void Produce(int* out, int stride, int frames, const ToneWaveTable& table, bool add);

    /// Moves the frequency to where it is after `fraction` of the sweep.
    void Sweep(double fraction, bool logSweep);

    /// Back to the start frequency and phase 0.
    void Restart();

    bool isImpulse = false;
    std::uint32_t startIncrement = 0;   ///< added to the phase per sample, at the start frequency
    std::uint32_t currentIncrement = 0; ///< and now
    double sweepParameter = 0; ///< end / start frequency (logarithmic), end - start increment (linear)
    std::uint32_t phase = 0;
    int gain = 0; ///< 8.24
};
