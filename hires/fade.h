#pragma once

#include <cstdint>

/// A sound's raised cosine at its beginning and end.
class HiresFade {
public:
    /// In frames. `length` is the sound's, `HiresSource::Endless` without an end; the fades take half of it
    /// at most, each.
    HiresFade(std::int64_t in, std::int64_t out, std::int64_t length);

    /// What is left of the frame at `position`; 2^30 is all of it.
    std::int64_t GetGain(std::int64_t position) const;
    /// True where all frames from `position` on, `count` of them, stay as they are.
    bool IsFlat(std::int64_t position, std::int64_t count) const;

private:
    std::int64_t inFrames, outFrames, outStart;
};
