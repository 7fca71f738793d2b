#pragma once

#include "hires/file_kind.h"

constexpr int GetBits(HiresSamples samples) {
    switch (samples) {
    case HiresSamples::Int16:
        return 16;
    case HiresSamples::Int24:
        return 24;
    default:
        return 32;
    }
}

constexpr int GetFrameBytes(const HiresFileFormat& format) {
    return format.channels * (GetBits(format.samples) / 8);
}

/// True where lengths of 32 bits might not do, for the samples and what stands around them.
inline bool IsBeyond4GiB(const HiresFileFormat& format) {
    constexpr std::int64_t Room = (std::int64_t{1} << 32) - (1 << 16);
    return format.frames > Room / GetFrameBytes(format);
}
