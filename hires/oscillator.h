#pragma once

#include "hires/frequency_path.h"
#include "hires/wave_table.h"

#include <memory>

/// One component on one channel at any rate: only what lies below half the rate sounds, also while it sweeps.
class HiresOscillator {
public:
    /// The most that it reaches where `amplitude` is 1.
    static double FindPeak(const HiresWaveform& waveform, const HiresFrequencyPath& path);
    /// `amplitude`, 0..1, is that of the waveform's own peak, full scale being 1. `tables` is the waveform's,
    /// and is needed for as long as the oscillator.
    static std::unique_ptr<HiresOscillator> Make(const HiresWaveform& waveform,
                                                 const HiresFrequencyPath& path, double amplitude,
                                                 HiresWaveTables& tables);
    virtual ~HiresOscillator() = default;

    /// Adds the next block.
    virtual void Add(HiresSums& sums) = 0;
};
