#pragma once

#include "measure/channel_block.h"
#include "measure/mean_spectrum.h"

#include <optional>

/// Compares the samples of two channels. Thread: one at a time.
class StereoMeter {
public:
    void Add(ChannelBlock left, ChannelBlock right);

    /// The second channel's RMS beside the first one's, as a factor; none where either is silent.
    std::optional<double> GetLevelRatio() const;
    /// -1..1: 1 for the same wave in both, -1 for the opposite one; none where either is silent.
    std::optional<double> GetCorrelation() const;

private:
    double lefts = 0, rights = 0, products = 0; ///< sums, the first two of squares
};

/// By how many frames the second channel lags behind the first, which may be a part of one; below 0 where it
/// leads. None where no delay of up to a quarter of a segment makes them alike (a correlation of a half). In
/// one tone nothing tells delays that are whole periods apart: the answer is the one closest to 0. The
/// opposite of a tone has none, as an inverted channel. DC counts for nothing.
std::optional<double> MeasureDelay(const Spectrum& spectrum);
