#pragma once

#include "gui/shown_sound.h"
#include "measure/mean_spectrum.h"

/// A channel's spectrum as it is looked at: the level of a sine in each bin, and that of the line itself, to
/// 0.01 dB, in the bin that stands for it.
std::vector<LShownSound::Bin> MakeBins(const Spectrum& spectrum, std::size_t channel);
