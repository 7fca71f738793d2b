#pragma once

#include "tone/tone_data.h"

#include <optional>
#include <string>

// What a user is told of a file that was saved: what, where, how long and how loud.

/// "Saved sweep.wav in /home/ann: 10.000 s, peak -12.04 dBFS". Endless without a length.
std::string DescribeSavedSound(const std::string& path, std::optional<double> seconds,
                               std::optional<double> peakDbfs);
/// The same for a tone that was saved as such, by what it says of itself.
std::string DescribeSavedTone(const std::string& path, const SonvireData& tone);
