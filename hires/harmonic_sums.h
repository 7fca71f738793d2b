#pragma once

#include <cstdint>

/// Sums of so many harmonics of a waveform, each as `HiresWaveform::getAmplitude` says, at a phase of which
/// 2^64 are a cycle; from formulas, where tables would be too large. `harmonics` is 4096..2^30, of a
/// pulse 1..2^30; within 1e-8 of the largest value.
double SumSquare(std::uint64_t phase, int harmonics);
double SumSaw(std::uint64_t phase, int harmonics);
double SumPulse(std::uint64_t phase, int harmonics);
