#pragma once

#include "hires/frequency_path.h"
#include "hires/harmonics.h"

#include <cstdint>
#include <optional>

/// The shape of an oscillator: a sine has no spectrum of its own.
struct HiresWaveform {
    /// Null for a code that is no periodic waveform.
    static const HiresWaveform* Find(unsigned int code);

    const HiresSpectrum* spectrum; ///< null for a sine
    double peak;                   ///< the most that any number of its harmonics reach, its own peak being 1
    bool isPulse;                  ///< whether its harmonics grow with the frequency, so that its peak stays
};

/// One component on one channel at any rate: only what lies below half the rate sounds, also while it sweeps.
class HiresOscillator {
public:
    /// `amplitude` is that of the waveform's own peak, full scale being 1.
    HiresOscillator(const HiresWaveform& of, const HiresFrequencyPath& frequency, double amplitude);

    /// Adds the next frames to sums[0], sums[stride], ...; 2^52 is full scale.
    void Add(std::int64_t* sums, int stride, int frames);
    /// Back to the start of the sweep; the phase goes on, so that nothing clicks.
    void RestartSweep() { path.Restart(); }
    /// The most that it reaches, full scale being 1.
    double GetPeak() const;

private:
    template <class Value>
    void AddEach(std::int64_t* sums, int stride, int frames, Value value);
    std::int64_t Fade(std::int64_t value) const;
    std::int64_t GetSweepingShape();
    std::int64_t ScalePulse(std::int64_t value) const;

    const HiresWaveform& waveform;
    HiresFrequencyPath path;
    double amplitude;
    std::int64_t gain; ///< 2^31 is 1
    std::uint64_t phase = 0;
    std::optional<HiresHarmonics> harmonics; ///< but for a sine
};
