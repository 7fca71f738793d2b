#pragma once

#include "sound/sound_time.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

/// What frames of a playback are like, and so what its output is asked for.
struct LPlayFormat {
    /// Of the host's byte order; full scale of a float is 1.
    enum class Sample : std::uint8_t { Int16, Float };

    int rate = 0; ///< frames per second
    std::uint8_t channels = 0;
    Sample sample = Sample::Int16;

    std::size_t GetFrameBytes() const {
        return channels * (sample == Sample::Float ? sizeof(float) : sizeof(std::int16_t));
    }
    /// How long `frames` take; after 24 days, which is the most that there is, the time stands.
    LSoundTime GetTime(std::int64_t frames) const {
        constexpr std::int64_t most = std::numeric_limits<int>::max();
        return LSoundTime(
            static_cast<int>(std::min(frames / rate * 1000 + frames % rate * 1000 / rate, most)));
    }
    /// The frames that are read at a time, but for the last: 100 ms, at most 8192.
    int GetBlockFrames() const { return std::min(rate / 10, 8192); }
};
