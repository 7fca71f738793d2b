#pragma once

#include "cli/hires_options.h"
#include "cli/output_option.h"
#include "cli/tone_options.h"

#include <optional>
#include <string>

/// What `render` was asked for.
struct RenderOptions {
    std::string input; ///< empty where the tone options stand for it
    OutputOption output;
    ToneOptions tone;
    HiresOptions high;
    std::optional<int> rate, channels;
    std::string bits, dither; ///< as they were typed; empty where they were not given
    bool isRaw = false;       ///< in high quality
    std::optional<int> seed;
    bool quiet = false;
    bool strict = false;
};

/// Render the input in one of both qualities, and return the exit status.
int RenderStandard(const RenderOptions& options);
int RenderHigh(const RenderOptions& options);
