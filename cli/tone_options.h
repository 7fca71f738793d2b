#pragma once

#include "tone/tone_data.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

/// The options by which a command describes a tone. Each is a text as it was typed, empty where it was not
/// given.
struct ToneOptions {
    std::string waveform;
    std::string frequency, right, end, endRight; ///< values separated by commas, in Hz
    std::string amplitude;                       ///< in dB
    std::string sweep;
    std::optional<int> tones;
    std::optional<unsigned int> durationMs;
    bool durationIsBare = false; ///< typed without a unit
    bool loop = false;

    /// True where any option but the duration was given, which may as well belong to an input file.
    bool DescribeTone() const;
};

/// Adds the options to a command. `options` must outlive it.
void AddToneOptions(CLI::App& command, ToneOptions& options);

/// Warns of a duration so short that its bare number may have been meant as seconds.
void HintAtShortDuration(const ToneOptions& options);

/// Adds `--seed`, which makes the noises that are opened from then on the same every time. `seed`, which must
/// outlive the command, is for high quality.
void AddSeedOption(CLI::App& command, std::optional<int>& seed);

/// The tone that the options describe, or why they describe none.
struct DescribedTone {
    SonvireData tone;
    std::string problem; ///< empty where there is a tone
};
DescribedTone MakeTone(const ToneOptions& options);
