#pragma once

#include "sound/fixed_point.h"
#include "sound/level.h"
#include "sound/sound_time.h"

#include <algorithm>
#include <array>
#include <cstdint>

/// What has been heard of a playback since the report before, as it was before the volume.
struct LSoundHeard {
    LSoundTime sinceStart; ///< all that has been heard; goes on where the position stands still or goes back
    std::uint8_t channels = 0;                   ///< at most `LDBMC::MaxChannels`; those beyond are left out
    std::array<int, LDBMC::MaxChannels> peaks{}; ///< the largest magnitude of each channel, internal scale
    int limiterGain = UnityGain;                 ///< the least, 8.24

    void Append(const LSoundHeard& later) {
        sinceStart = later.sinceStart;
        channels = later.channels;
        limiterGain = std::min(limiterGain, later.limiterGain);
        for (std::size_t c = 0; c < peaks.size(); ++c)
            peaks[c] = std::max(peaks[c], later.peaks[c]);
    }
};
