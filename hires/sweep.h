#pragma once

#include "hires/oscillator.h"

/// The oscillator of a path that is not steady; `HiresOscillator::Make` says the rest.
std::unique_ptr<HiresOscillator> MakeHiresSweep(const HiresWaveform& waveform, const HiresFrequencyPath& path,
                                                double amplitude, HiresWaveTables& tables);
