#pragma once

#include "gui/shown_sound.h"
#include "measure/level_meter.h"
#include "measure/tone_meter.h"

/// What is known of a sound's levels, and of how much of it.
struct SoundLevels {
    Level level{};
    double limiterDb = 0; ///< that the limiter takes off at most
    double loweredDb = 0; ///< by which the tone was lowered beforehand
    double seconds = 0;   ///< that were measured
    bool isAll = true;    ///< nothing was left out
};

/// "peak -0.3 dBFS, RMS -9.1, crest 8.8 dB, limiter 3.2 dB", with what the user is to beware of marked.
std::vector<LMarkedText> DescribeLevels(const SoundLevels& levels);

/// The strongest lines of each channel, and what a sine has beside itself: "1.000 kHz -12.0 dBFS; THD+N -98.1
/// dB"; empty where there are none. Levels of what comes and goes would be means: it is told to do so.
std::string DescribeLines(const std::vector<ToneFigures>& channels, bool isSine);
