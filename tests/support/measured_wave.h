#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <vector>

using Wave = std::function<double(double frame)>;

/// A sine, its phase in cycles.
inline Wave SineOf(double hz, double amplitude, double phase = 0, int rate = 44100) {
    return [=](double frame) {
        return amplitude * std::sin(2 * std::numbers::pi * (hz * frame / rate + phase));
    };
}

inline std::vector<double> TakeSamples(const Wave& wave, int frames) {
    std::vector<double> samples;
    for (int i = 0; i < frames; ++i)
        samples.push_back(wave(i));
    return samples;
}

/// As 16 bits hold it, too loud ones wrapped.
inline double Wrap16(double sample) {
    return static_cast<std::int16_t>(std::lround(sample * 32768)) / 32768.0;
}

/// Triangular dither of one step of 16 bits, the same for the same frame: mean square 1/6 of a step.
inline double DitherOf(double frame) {
    const auto hash = [](std::uint64_t x) {
        x = (x ^ x >> 31) * 0x9E3779B97F4A7C15;
        x = (x ^ x >> 29) * 0xBF58476D1CE4E5B9;
        return static_cast<double>(x >> 11) * 0x1p-53;
    };
    const auto at = static_cast<std::uint64_t>(static_cast<std::int64_t>(frame));
    return (hash(2 * at + 1) - hash(2 * at + 2)) / 32768;
}
