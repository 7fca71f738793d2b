#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

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
    /// The frames that are read at a time, but for the last: 100 ms, at most 8192.
    int GetBlockFrames() const { return std::min(rate / 10, 8192); }
};
