#pragma once

#include "sound/sound_source.h"

#include <optional>
#include <string>

enum class SoundLength { Finite, Any };

/// An input file opened as the source of its sound, or the reason why it can't be.
struct SoundInput {
    LSoundSource source;
    std::string refusal; ///< empty where the source can be used
    std::string warning; ///< empty unless there is something the user should know
    bool endless = false;
};

/// Opens a tone (.tdf) or a WAVE file (.wav), told apart by the extension in any case. `durationMs`, which
/// goes with tones only, makes the tone that long and takes it out of its loop. An endless tone without it is
/// refused where the sound has to end.
SoundInput OpenSoundInput(const std::string& path, std::optional<unsigned int> durationMs,
                          SoundLength length = SoundLength::Finite);
