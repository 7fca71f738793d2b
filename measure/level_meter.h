#pragma once

#include "measure/wrap_finder.h"

#include <cstdint>
#include <span>

/// What the samples of a channel amount to, or of all channels together. Full scale is 1.
struct Level {
    std::int64_t samples = 0;
    double lowest = 0, highest = 0;
    std::int64_t atLowest = 0, atHighest = 0; ///< samples that have just that: many where tops are cut flat
    double sum = 0, squares = 0;

    std::int64_t clipped = 0;     ///< samples at full scale of the format
    std::int64_t clippedRuns = 0; ///< of two such samples and more; a single one may be a peak that just fits
    std::int64_t longestClip = 0; ///< samples in a row
    std::int64_t firstClip = -1;  ///< the frame of the first such sample; -1: none

    std::int64_t wrapped = 0;    ///< samples, as `WrapFinder` finds them
    std::int64_t firstWrap = -1; ///< the frame of the first; -1: none

    double GetPeak() const; ///< the largest magnitude
    double GetDc() const;
    double GetRms() const; ///< that of the DC included
    /// Peak beside RMS, as a factor; 0 for silence.
    double GetCrest() const;
};

/// Measures one channel, block by block. Thread: one at a time.
class LevelMeter {
public:
    /// Full scale of integers of `bits` is their largest one, or what lies as far below zero; that of
    /// floating point, with 0 bits, is 1.
    explicit LevelMeter(int bits);

    void Add(ChannelBlock samples);
    Level Get() const;

private:
    void CountClips(ChannelBlock samples);

    double fullScale;
    Level level;
    std::int64_t clipRun = 0; ///< samples at full scale up to here, on one side
    double clipSide = 0;      ///< the last of them
    WrapFinder wraps;
};

/// All channels as if they were one; the first of what happened in any.
Level Together(std::span<const Level> channels);
