#pragma once

#include "sound/sound_source.h"
#include "tone/tone_data.h"

/// Turns a tone into the source of its samples: the one way in for playing and rendering. Never fails as
/// such; a source that can't be used is answered with its status set. It runs at the tone's own rate and
/// channel count, unlimited: consumers convert and limit as they need.
LSoundSource OpenToneEngine(const SonvireData& tone);
