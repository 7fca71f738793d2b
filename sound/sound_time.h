#pragma once

#include "sound/fixed_point.h"

/// The frames that `milliseconds` take at `rate` frames per second, truncated toward zero. Whole seconds and
/// the rest are converted apart, and a result beyond 32 bits wraps.
constexpr int GetDurationFrames(std::int64_t milliseconds, int rate) {
    return WrapToInt(milliseconds / 1000 * rate + milliseconds % 1000 * rate / 1000);
}

/// A duration or position in milliseconds; may be negative.
class LSoundTime {
public:
    constexpr LSoundTime() = default;
    constexpr explicit LSoundTime(int ms) : milliseconds(ms) {}

    constexpr int GetMilliseconds() const { return milliseconds; }

    constexpr int GetSamples(int rate) const { return GetDurationFrames(milliseconds, rate); }

    /// Takes the time of `frames` frames, truncated to whole milliseconds; a rate below 1 leaves the time as
    /// it is.
    constexpr void SetSamples(int frames, int rate) {
        if (rate >= 1)
            milliseconds =
                WrapToInt(std::int64_t{frames / rate} * 1000 + std::int64_t{frames % rate} * 1000 / rate);
    }

private:
    int milliseconds = 0;
};
