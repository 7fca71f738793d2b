#pragma once

#include "jobs/sound_input.h"

#include <functional>

class LSoundPlayer;
struct Quality;

/// What is about to play, in either quality.
struct PlayInput : InputFacts {
    LSoundTime length;    ///< of one pass
    double loweredDb = 0; ///< in high quality, by how much the tone is lowered so that it fits
    /// As the player's; null with a failure.
    std::function<bool(LSoundPlayer&)> start;
};

/// Opens the tone to be heard; in high quality at a rate that only the player knows.
PlayInput OpenPlayInput(const SonvireData& tone, const Quality& quality);
