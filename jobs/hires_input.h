#pragma once

#include "hires/settings.h"
#include "hires/tone_source.h"
#include "jobs/sound_input.h"

#include <functional>

/// What is asked of the high-resolution engine. A rate and channels that are left open are a sound file's
/// own; for tones and lists the rate is then that of the settings.
struct HiresRequest {
    HiresSettings settings{};
    std::optional<int> rate{};
    std::optional<int> channels{};
    std::optional<unsigned int> durationMs{}; ///< of a tone, which is then taken out of its loop
    SoundLength length = SoundLength::Finite;
};

/// An input opened in high quality.
struct HiresInput : InputFacts {
    /// Opens it anew, from its beginning, at another rate. Any thread may do that, one at a time.
    using Opener = std::function<HiresTone(int rate)>;

    HiresSourcePtr source;   ///< null with a failure
    Opener open;             ///< null with a failure
    double peak = 0;         ///< what its tones don't exceed, in dBFS: their components' peaks added up
    double loweredDb = 0;    ///< by how much tones were lowered to fit
    bool isFile = false;     ///< a sound file, which stands at its own level
    std::string description; ///< what it is, in a line, for the tag of a file: "Sine 1 Frequency ..."
};

/// Opens a tone (.tdf), a tone list (.tdl) or a sound file of any other name; a list may have sound files of
/// all kinds. Refuses what would exceed full scale, with the level that fits, unless the settings lower it.
/// An endless tone is refused where the sound has to end; a list plays once through.
HiresInput OpenHiresInput(const std::string& path, const HiresRequest& request);

/// The same for a tone that needs no file.
HiresInput OpenHiresToneInput(const SonvireData& tone, const HiresRequest& request);
