#include "tone/tone_level.h"

#include "sound/decibels.h"
#include "sound/level.h"
#include "tone/waveforms.h"

#include <cmath>
#include <cstdio>

namespace {

/// 1 is full scale; 0 is silence.
double GetComponentPeak(const SonvireData& tone, std::size_t component) {
    const std::int8_t db = GetComponentLevel(tone, component);
    if (db <= LDB::Silence)
        return 0;
    const bool hasLevel = tone.waveform != ToneImpulse;
    return GetWaveformPeak(tone.waveform) * (hasLevel ? std::pow(10, db / 20.0) : 1);
}

std::optional<double> ToDbfs(double peak) {
    return peak > 0 ? std::optional(ToDecibels(peak)) : std::nullopt;
}

} // namespace

std::int8_t GetComponentLevel(const SonvireData& tone, std::size_t component) {
    return tone.HasFlag(ToneFlagVariableAmplitude) ? tone.amplitudeDb[component] : std::int8_t{0};
}

std::optional<double> GetComponentPeakDbfs(const SonvireData& tone, std::size_t component) {
    return ToDbfs(GetComponentPeak(tone, component));
}

std::optional<double> GetHighestPeakDbfs(const SonvireData& tone) {
    double peak = 0;
    for (std::size_t i = 0; i < tone.GetToneCount(); ++i)
        peak += GetComponentPeak(tone, i);
    return ToDbfs(peak);
}

std::optional<double> GetSamplePeakDbfs(int peak) {
    return ToDbfs(static_cast<double>(peak) / FullScale16);
}

std::string FormatDbfs(double dbfs) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f dBFS", std::round(dbfs * 100) / 100 + 0.0); // no -0.00
    return text;
}
