#pragma once

#include "cli/output_option.h"
#include "cli/sound_options.h"

/// What `render` was asked for.
struct RenderOptions : SoundOptions {
    OutputOption output;
    std::optional<std::string> certificate{}; ///< to be written as well
    bool isRaw = false;                       ///< in high quality
};

/// Render the input in one of both qualities, and return the exit status.
int RenderStandard(const RenderOptions& options);
int RenderHigh(const RenderOptions& options);
