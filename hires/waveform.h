#pragma once

/// The shape of a periodic waveform, as its harmonics: sines, or cosines of a pulse. All of them are static.
struct HiresWaveform {
    /// Null for a code that is no periodic waveform.
    static const HiresWaveform* Find(unsigned int code);

    bool IsSine() const { return getAmplitude == nullptr; }

    /// The amplitude of the k-th harmonic, 1.., where the waveform's own peak is 1; null for a sine. Those of
    /// a pulse have all the same: twice the part of the rate that its frequency is.
    double (*getAmplitude)(int harmonic);
    double peak;  ///< the most that any number of its harmonics reach
    bool isPulse; ///< whether its harmonics are cosines, and beside them stands half of what they are
};
