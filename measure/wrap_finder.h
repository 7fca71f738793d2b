#pragma once

#include "measure/channel_block.h"

#include <cstdint>

/// Finds samples that have wrapped: those of a wave that rises above full scale and goes on at the other end
/// of the range, 2 below, until it comes back.
///
/// A wave counts as one that wraps if it is round there: from four samples before to four samples behind,
/// what is 2 away put back, it bends towards zero, by 0.1 a sample at most. That holds for a sine below a
/// twentieth of the rate, and for a sum of such sines near their common peak. What jumps by itself is no
/// wrap: squares, pulses and sawtooths, band-limited or not, and noise. Not found are wraps of a higher tone,
/// of one under noise of more than three steps of 16 bits, of one below 40 Hz by less than 0.0003, and runs
/// of more than 4096 frames. Thread: one at a time.
class WrapFinder {
public:
    void Add(ChannelBlock samples);

    std::int64_t GetSamples() const { return wrapped; } ///< those that have wrapped
    std::int64_t GetFirst() const { return first; }     ///< the frame of the first; -1: none

private:
    void Take(double sample);
    void TurnAt(double sample);
    void Follow(double sample);
    void Count();

    std::int64_t wrapped = 0, first = -1, frame = 0;
    double recent[4] = {}; ///< the newest first; what is 2 away is put back
    int round[2] = {};     ///< for how many samples the wave has been round, as a peak and as a trough
    int side = 0;          ///< of the run that is followed: 0 a peak, 1 a trough
    double offset = 0;     ///< what puts a sample of the open run back where it belongs
    int away = 0;          ///< frames in the run that is followed; 0: none is
    int behind = 0;        ///< frames since it came back
    double climb = 0;      ///< over the samples before it
    double highest = 0;    ///< magnitude in it
};
