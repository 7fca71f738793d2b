#pragma once

#include "cli/hires_options.h"
#include "cli/tone_options.h"
#include "jobs/frame_reader.h"

#include <optional>
#include <string>
#include <vector>

/// A sound that a command makes: of a file or of tone options, in one of both qualities, as samples of a
/// format.
struct SoundOptions {
    std::string input; ///< empty where the tone options stand for it
    ToneOptions tone;
    HiresOptions high;
    std::optional<int> rate, channels;
    std::string bits, dither; ///< as they were typed; empty where they were not given
    std::optional<int> seed;
    bool quiet = false;
    bool strict = false;

    std::string GetInputName() const;
    /// Whether other samples are asked for than a sound file holds.
    bool ShapesSamples() const;
    /// Takes high quality where something needs it, such as the name of an output. Why the options make no
    /// sense; empty where they do.
    std::string Settle(const std::string& output = {});

    // Once they are settled:
    RenderedFormatRequest GetFormat() const; ///< in the standard quality
    HiresRounding GetRounding() const;       ///< in high quality
    SoundInput OpenStandard() const;
    HiresInput OpenHigh() const;

    /// Tells what the user should know first; false where that is reason enough to fail.
    bool Confirm(const std::vector<LFileWarning>& warnings) const;
    /// What may help where the input can't be used.
    std::string Hint(const InputFacts& facts) const;
};

/// Adds all of them but INPUT. `options` must outlive the command.
void AddSoundOptions(CLI::App& command, SoundOptions& options);
