#pragma once

#include "sound/sound_source.h"
#include "tone/tone_data.h"

struct ToneListReport;

/// Turns a tone into the source of its samples: the one way in for playing and rendering. Never fails as
/// such; a source that can't be used is returned with its status set. It runs at the tone's own rate and
/// channel count, unlimited: consumers convert and limit as they need. `report`: what `OpenToneList` says of
/// a tone that plays a list.
LSoundSource OpenToneEngine(const SonvireData& tone, ToneListReport* report = nullptr);

/// Makes a tone's sound loop where the tone does.
LSoundSource LoopTone(const SonvireData& tone, const LSoundSource& once);
