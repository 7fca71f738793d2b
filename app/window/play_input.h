#pragma once

#include "jobs/sound_input.h"

#include <atomic>
#include <functional>

class LSoundPlayer;
struct Quality;

/// What is about to play, in either quality.
struct PlayInput : InputFacts {
    LSoundTime length; ///< of one pass
    /// By how much the tone is lowered so that it fits; known once the player knows the format.
    std::shared_ptr<const std::atomic<double>> loweredDb;
    /// As the player's; not with a failure.
    std::function<bool(LSoundPlayer&)> start;
};

/// Opens the tone to be heard; in high quality at a rate that only the player knows.
PlayInput OpenPlayInput(const SonvireData& tone, const Quality& quality);
