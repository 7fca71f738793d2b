#pragma once

#include "jobs/frame_reader.h"
#include "tone/tone_data.h"

/// What is to be looked at: a tone as it sounds in a quality.
struct SoundRequest {
    SonvireData tone;
    int highRate = 0; ///< frames per second of the high quality; 0 is the standard one

    bool operator==(const SoundRequest&) const = default;
};

/// A request, opened to be read from its beginning.
struct RequestedSound : FrameInput {
    double loweredDb = 0; ///< by how much the tone was lowered, so that it fits
};

/// Any thread.
RequestedSound OpenRequest(const SoundRequest& request);
