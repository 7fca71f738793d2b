#pragma once

#include "jobs/render_outcome.h"

#include <cstdint>
#include <optional>
#include <string>

class LWindow;
struct SonvireData;

/// How the saving of a sound has ended, and what there is in its file once it is complete.
struct SavedSound {
    RenderOutcome outcome;
    std::int64_t ms = 0;
    std::optional<double> peakDbfs{}; ///< nothing for silence
    std::string quality{};            ///< "96 kHz, 24 bits"; empty in the standard one
};

/// Renders a tone that ends under a progress dialog, once the user has agreed to what will not sound as
/// expected: in the quality that the settings name, or in the one that alone has such files.
SavedSound SaveSound(LWindow& parent, const SonvireData& tone, const std::string& path);
