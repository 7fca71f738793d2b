#pragma once

#include <cstdint>

/// The shape of a periodic waveform, as its harmonics: sines, or cosines of a pulse. All of them are static.
struct HiresWaveform {
    /// Null for a code that is no periodic waveform.
    static const HiresWaveform* Find(unsigned int code);

    bool IsSine() const { return getAmplitude == nullptr; }
    /// How many harmonics lie below half the rate, for a frequency that is this part of it.
    int CountHarmonics(double partOfRate) const;
    /// The most that so many harmonics reach, 1.., beside the waveform's own peak.
    double FindPeak(int harmonics) const;

    /// The amplitude of the k-th harmonic, 1.., where the waveform's own peak is 1; null for a sine. Those of
    /// a pulse have all the same: twice the share of the rate that its frequency is.
    double (*getAmplitude)(int harmonic);
    /// Where the peak of so many is, in cycles; null for a pulse, whose harmonics all meet.
    double (*getPeakPlace)(int harmonics);
    /// What so many of them add up to, more than tables hold; null where what is beyond can't be heard, and
    /// is left out.
    double (*sum)(std::uint64_t phase, int harmonics);
    double peak; ///< the most that any number of them reach
    /// What tables hold at most: what is added between their entries has to stay below the harmonics.
    int mostInTables;
    bool isPulse; ///< whether they are cosines, and beside them stands half of one
};
