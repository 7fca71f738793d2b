#pragma once

#include "hires/hires_source.h"
#include "hires/settings.h"
#include "sys/failure.h"
#include "tone/tone_data.h"

/// A tone, list or sound file that was opened, or why it can't be.
struct HiresTone {
    HiresSourcePtr source; ///< null with a failure
    LFailure failure{};
    double peak = 0;      ///< the most that it reaches, in dBFS, as it stands; -infinity for silence
    double loweredDb = 0; ///< by how much the level was lowered to fit
};

/// Opens a tone that is no list in the high-resolution engine; every field of it may hold anything.
/// Frequencies beyond half the rate are silent, and a looped tone starts its sweep anew with each pass.
HiresTone OpenHiresTone(const SonvireData& tone, const HiresSettings& settings);

/// What a tone will be once it is opened.
struct HiresToneFacts {
    int channels;
    std::int64_t length; ///< as `HiresSource::GetLength`
    double peak;         ///< the most that it reaches, in dBFS; -infinity for silence
};
HiresToneFacts MeasureHiresTone(const SonvireData& tone, const HiresSettings& settings);

/// Says what exceeds full scale by `peak` dB at this level, and which level fits.
LFailure ExplainHiresExcess(double level, double peak);
