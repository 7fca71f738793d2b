#pragma once

#include "hires/frequency_path.h"
#include "hires/wave_table.h"
#include "tone/tone_data.h"

#include <array>
#include <memory>
#include <vector>

/// What sounds in a tone that is no list, at a rate; every field of the tone may hold anything. Amplitudes
/// are beside that of a sine of 0 dB.
struct HiresToneParts {
    struct Component {
        HiresFrequencyPath path;
        double amplitude;
    };
    enum class Noise { None, White, Pink };

    HiresToneParts(const SonvireData& tone, int rate);

    /// The most that it reaches.
    double FindPeak() const;

    int rate;
    int channels;
    std::int64_t length; ///< in frames; `HiresSource::Endless` without an end
    const HiresWaveform* waveform = nullptr;
    std::unique_ptr<HiresWaveTables> tables; ///< of the waveform
    std::array<std::vector<Component>, 2> components;
    Noise noise = Noise::None;
    double noiseAmplitude = 0;

private:
    void AddComponents(const SonvireData& tone, std::int64_t pass);
    void AddNoise(unsigned int code);
};

/// The frames of a time in milliseconds, which may be any number.
std::int64_t CountHiresFrames(double ms, int rate);
