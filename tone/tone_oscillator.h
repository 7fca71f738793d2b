#pragma once

#include "sound/fixed_point.h"
#include "tone/wave_table.h"

#include <cstdint>
#include <span>

/// One component on one channel: a 32-bit phase accumulator (a cycle is 2^32) that reads a wave table,
/// without interpolation, or gives an impulse whenever it wraps.
struct SSTonePole {
    /// What an impulse reads, whatever its level.
    static constexpr int ImpulseLevel = 185364;

    /// `startHz` and `endHz` may be any number: a negative frequency runs backwards, and an increment is
    /// taken modulo 2^32, 0 where the number is not finite. `amplitudeDb`: see `LDB`.
    void Init(double startHz, double endHz, std::int8_t amplitudeDb, bool logSweep);

    bool IsAtUnity() const { return gain == UnityGain; }

    /// Back to the start frequency and phase 0.
    void Restart();

    std::uint32_t startIncrement = 0;   ///< added to the phase per sample, at the start frequency
    std::uint32_t currentIncrement = 0; ///< and now
    double sweepParameter = 0; ///< end / start frequency (logarithmic), end - start increment (linear)
    std::uint32_t phase = 0;
    int gain = 0; ///< 8.24
};

/// Writes the sum of the next `frames` samples of all oscillators, of which those at unity gain stand first,
/// to out[0], out[stride], ...; without a table they are impulses.
void SumOscillators(std::span<SSTonePole> oscillators, const ToneWaveTable* table, int* out, int stride,
                    int frames);

/// Moves the frequencies to where they are after `fraction` of the sweep.
void SweepOscillators(std::span<SSTonePole> oscillators, double fraction, bool logSweep);
