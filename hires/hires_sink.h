#pragma once

#include "sys/failure.h"

#include <cstdint>

/// Takes frames of the high-resolution engine, at the scale of `HiresSource`, one after the other.
class HiresSink {
public:
    /// So many frames at once are written fastest: pieces of less than 64 KiB cost the system twice as much.
    static constexpr int BlockFrames = 32768;

    HiresSink() = default;
    HiresSink(const HiresSink&) = delete;
    HiresSink& operator=(const HiresSink&) = delete;
    virtual ~HiresSink() = default;

    /// Fails where not all of them could be written (a full disk), and from then on.
    /// Thread: reader. Blocks: for files. Allocates: no.
    virtual LFailure Write(const std::int32_t* samples, int frames) = 0;
    /// Completes what was written, also where that is not as much as was expected; fails as `Write` does.
    virtual LFailure Finish() = 0;
};
