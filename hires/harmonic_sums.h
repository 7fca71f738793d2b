#pragma once

#include <cstdint>

/// Sums of so many harmonics of a waveform, each as `HiresWaveform::getAmplitude` says, at a phase of which
/// 2^64 are a cycle; from formulas, where tables would be too large. Of squares and saws, `harmonics` is
/// 4096..2^30, and the sums are within 1e-8 of the largest value; of pulses, 1..2^30.
double SumSquare(std::uint64_t phase, int harmonics);
double SumSaw(std::uint64_t phase, int harmonics);
double SumPulse(std::uint64_t phase, int harmonics);
