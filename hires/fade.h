#pragma once

#include "hires/block.h"

#include <cstdint>

/// A sound's raised cosine at its beginning and end.
class HiresFade {
public:
    /// In frames. `length` is the sound's, `HiresSource::Endless` without an end; the fades take half of it
    /// at most, each.
    HiresFade(std::int64_t in, std::int64_t out, std::int64_t length);

    /// Fades the block that begins at `position`.
    void Apply(std::int64_t position, HiresSums& sums) const;

private:
    std::int64_t GetGain(std::int64_t position) const;

    std::int64_t inFrames, outFrames, end;
};
