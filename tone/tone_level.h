#pragma once

#include "tone/tone_data.h"

#include <optional>

// How loud a tone is, as its peak below a full-scale sample (dBFS). A component at 0 dB has one of its own
// for each waveform (`GetWaveformPeak`); none of these know the levels of noise and of lists.

/// In dB: the component's own where levels vary, else 0.
std::int8_t GetComponentLevel(const SonvireData& tone, std::size_t component);
/// Nothing for a silent one.
std::optional<double> GetComponentPeakDbfs(const SonvireData& tone, std::size_t component);
/// The peak where those of all components meet; it is limited to 0 dBFS when it plays. Nothing for silence.
std::optional<double> GetHighestPeakDbfs(const SonvireData& tone);

/// Of the largest magnitude of internal samples; nothing for 0.
std::optional<double> GetSamplePeakDbfs(int peak);

/// "-12.04 dBFS"
std::string FormatDbfs(double dbfs);
